#pragma once

#include <QString>
#include <QStringList>

// Looking for words in receipt text regardless of case and of what stands around them. `phrase` is one or
// more lower-case words with single spaces ("grand total").
namespace fennick::engine {

// `text` lower-cased, its letters and digits kept and everything else turned to single spaces, with a space
// at both ends: " grand total ". Apostrophes vanish without a gap ("McDonald's" is one word).
QString wordsOf(const QString &text);

// `text` in the letters of the English alphabet as far as it is Latin script: accents are taken off, ß
// becomes ss, æ ae, ø o, đ d, ł l. Other scripts stay as they are.
QString withoutAccents(const QString &text);

// Whether `phrase` occurs in `words` (as wordsOf() gives them) as whole words.
bool containsPhrase(const QString &words, const QString &phrase);

// Whether any of `phrases` does.
bool containsAnyPhrase(const QString &words, const QStringList &phrases);

} // namespace fennick::engine
