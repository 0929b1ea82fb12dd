#pragma once

#include "engine/fields/country_evidence.h"
#include "engine/recognition/text_line.h"

#include <QList>
#include <QString>

#include <optional>

namespace fennick::engine {

// The ISO 4217 code of the currency that `lines` are in: a conclusion from the codes and signs printed and
// from what points to a country. A sign that several currencies share, such as a bare $ or kr, belongs to the
// one whose country the rest points to. Empty if there is no evidence.
[[nodiscard]] std::optional<QString> readCurrency(const Reading &lines, const CountryScores &countryScores);

// Whether a currency symbol or code stands directly before `start` or after `end` in `line`.
bool hasCurrencyBeside(const QString &line, qsizetype start, qsizetype end);

// `amount` as people write it: "$23.50", "€1,200.00", "CHF 23.50", "¥1980"; without a currency "23.50".
QString moneyText(double amount, const std::optional<QString> &currency);

} // namespace fennick::engine
