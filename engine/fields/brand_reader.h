#pragma once

#include "engine/recognition/text_line.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace fennick::engine {

// The brand that a receipt was printed under.
struct FoundBrand {
    QString name;
    QStringList categories; // the kinds of places that bear the name
    QStringList countries;  // ISO 3166-1 codes; empty = anywhere, or too many to be evidence
    bool isProven = false;  // by a legal form, a web address or a tax number
};

// How surely a reading names each brand, by the words of its name.
using BrandScores = QMap<QString, double>;

// The brands that a reading names where a shop names itself: in its heading, before a legal form ("Aldi GmbH
// & Co. KG"), in a web address or by its tax number. A brand among the things bought does not count.
[[nodiscard]] BrandScores brandScores(const Reading &reading);

// The brand that most of the readings agree on.
[[nodiscard]] std::optional<FoundBrand> readBrand(const QList<BrandScores> &readings);

} // namespace fennick::engine
