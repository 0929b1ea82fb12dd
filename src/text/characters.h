#pragma once

#include <QString>

// Text operations that count or compare what a person sees rather than storage units. All are pure,
// independent of the user's locale, and callable from any thread.
namespace fennick {

// Whether two texts are equal after canonical normalisation ("é" composed or decomposed).
bool canonicallyEqual(QStringView left, QStringView right);

// Compares by Unicode scalar values: negative, zero or positive if `left` sorts before, equal to or after
// `right`. (QString compares UTF-16 units, which puts U+FFFD after an emoji.)
int compareScalars(QStringView left, QStringView right);

// The first `count` user-perceived characters (extended grapheme clusters) of `text`.
QString firstCharacters(const QString &text, qsizetype count);

// The first `count` user-perceived characters, limited to 16 UTF-16 units each on average, because a single
// character may carry any number of combining accents.
QString shortened(const QString &text, qsizetype count);

// `text` with unpaired surrogates replaced by U+FFFD, so that it survives being written as UTF-8.
QString wellFormed(const QString &text);

// Full, locale-independent case mappings; one character may become several.
QString upperCased(const QString &text);
QString lowerCased(const QString &text);

// `text` with its first user-perceived character upper-cased and the rest untouched.
QString firstCharacterUpperCased(const QString &text);

// The first letter of each word in upper case, the others in lower case.
QString capitalised(const QString &text);

} // namespace fennick
