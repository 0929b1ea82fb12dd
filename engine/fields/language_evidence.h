#pragma once

#include "engine/fields/country_evidence.h"
#include "engine/knowledge/word_table.h"
#include "engine/recognition/text_line.h"

namespace fennick::engine {

// The languages of a receipt besides English: those of the country that `countries` point to, and those whose
// words stand on it.
[[nodiscard]] Languages readLanguages(const Reading &reading, const CountryScores &countries);

} // namespace fennick::engine
