#pragma once

#include <QString>

namespace fennick {

// Whether the whole of `text` matches the ICU regular expression `pattern`: a trailing line feed does not
// slip through, and \d is any decimal digit of Unicode.
bool matchesWhole(const QString &text, const char *pattern);

} // namespace fennick
