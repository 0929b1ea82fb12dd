#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace fennick::engine {

// A brand under which shops, restaurants, hotels and the like are run.
struct Brand {
    QString name;
    QString category;      // of a receipt from there; "meal" is a breakfast, lunch or dinner
    QStringList countries; // ISO 3166-1 codes; empty = anywhere
};

// The brands whose name consists of these words, as wordsOf() gives them, whatever their accents. Callable
// from any thread.
[[nodiscard]] QList<Brand> brandsNamed(const QString &words);

// The names, as words, that begin with this letter and have `length` characters.
[[nodiscard]] const QStringList &brandNames(QChar first, qsizetype length);

// The brand of the company with this tax number, letters and digits only; empty if it is not known.
[[nodiscard]] QString brandOfTaxNumber(const QString &number);

} // namespace fennick::engine
