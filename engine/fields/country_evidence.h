#pragma once

#include "engine/recognition/text_line.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace fennick::engine {

// How much of a reading points to each country, by ISO 3166-1 code: tax numbers most, then
// telephone numbers, web addresses, places and postcodes, then words. Countries that nothing points to are
// left out.
using CountryScores = QHash<QString, double>;
[[nodiscard]] CountryScores countryScores(const Reading &reading);

// `scores` and what the seller's brand, which is found in `brandCountries`, says of the country.
[[nodiscard]] CountryScores withBrand(CountryScores scores, const QStringList &brandCountries);

// The country that most points to, if it is enough to go by.
[[nodiscard]] std::optional<QString> likeliestCountry(const CountryScores &scores);

// In per cent; none without a likeliest country.
[[nodiscard]] QList<double> taxRatesOfLikeliestCountry(const CountryScores &scores);

} // namespace fennick::engine
