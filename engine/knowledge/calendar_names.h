#pragma once

#include "engine/knowledge/word_table.h"

#include <QString>

// Names of months and days in English and other languages, whole or shortened to at least three letters
// ("Sept.", "wrz", "Října"), from the Unicode Common Locale Data Repository. Callable from any thread.
namespace fennick::engine {

// The month (1 to 12) that `name` stands for; 0 if it is none or may be several.
[[nodiscard]] int monthNumber(const QString &name, const Languages &languages);

// The day of the week (1 = Monday to 7) that `name` stands for; 0 if it is none or may be several.
[[nodiscard]] int weekdayNumber(const QString &name, const Languages &languages);

} // namespace fennick::engine
