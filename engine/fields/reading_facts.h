#pragma once

#include "engine/fields/brand_reader.h"
#include "engine/fields/country_evidence.h"
#include "engine/fields/labelled_amounts.h"
#include "engine/knowledge/word_table.h"
#include "engine/recognition/text_line.h"

namespace fennick::engine {

// What one reading says by itself. Computed once; the fields are votes over the facts of all readings.
struct ReadingFacts {
    Reading lines;
    BrandScores brands;
    CountryScores countries; // without what the brand says of them
    Languages languages;
    QList<LabelledAmount> amounts;
    bool isRefund = false; // the amounts were given back
};

[[nodiscard]] ReadingFacts factsOf(const Reading &lines);

} // namespace fennick::engine
