#pragma once

#include <QString>

namespace fennick {

// Whether the ICU regular expression `pattern` matches all of `text`: a trailing line feed is not ignored,
// and \d matches any decimal digit of Unicode.
bool matchesWhole(const QString &text, const char *pattern);

} // namespace fennick
