#pragma once

#include "engine/fields/amount_scores.h"
#include "engine/fields/brand_reader.h"
#include "engine/fields/country_evidence.h"
#include "engine/fields/labelled_amounts.h"
#include "engine/knowledge/word_table.h"
#include "engine/recognition/text_line.h"

#include <QList>
#include <QString>

#include <optional>

namespace fennick::engine {

// What one reading says by itself. Computed once; the fields are votes over the facts of all readings.
struct ReadingFacts {
    Reading lines;
    BrandScores brands;
    CountryScores countries; // without what the brand says of them
    Languages languages;
    std::optional<QString> currency; // without what the brand says of the country
    QList<LabelledAmount> amounts;
    AmountScores amountScores;
    bool isRefund = false; // the amounts were given back
};

[[nodiscard]] ReadingFacts factsOf(const Reading &lines);

// The amounts of a reading as they are printed in `currency`: another one than its own where the readings
// together show more than it does by itself.
[[nodiscard]] QList<LabelledAmount> amountsIn(const ReadingFacts &facts,
                                              const std::optional<QString> &currency);

// What these amounts say of the total.
[[nodiscard]] AmountScores amountScoresIn(const ReadingFacts &facts, const std::optional<QString> &currency);

} // namespace fennick::engine
