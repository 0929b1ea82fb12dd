#pragma once

#include <QString>

namespace fennick {

// `text` as searches compare it: without differences of case, of accents and of compatibility forms, so that
// "cafe" is found in "Café" and "strasse" in "Straße". Independent of the user's locale.
QString searchText(const QString &text);

// Whether `word` stands in `text` between characters that are neither letters nor digits.
bool containsWord(const QString &text, const QString &word);

} // namespace fennick
