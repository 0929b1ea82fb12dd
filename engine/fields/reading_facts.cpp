#include "engine/fields/reading_facts.h"

namespace fennick::engine {

ReadingFacts factsOf(const Reading &lines) {
    return {.lines = lines, .amounts = labelledAmounts(lines), .brands = brandScores(lines)};
}

} // namespace fennick::engine
