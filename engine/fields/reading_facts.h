#pragma once

#include "engine/fields/brand_reader.h"
#include "engine/fields/labelled_amounts.h"
#include "engine/recognition/text_line.h"

namespace fennick::engine {

// What one reading says by itself. Computed once; the fields are votes over the facts of all readings.
struct ReadingFacts {
    Reading lines;
    QList<LabelledAmount> amounts;
    BrandScores brands;
};

[[nodiscard]] ReadingFacts factsOf(const Reading &lines);

} // namespace fennick::engine
