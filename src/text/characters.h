#pragma once

#include <QString>

// Text rules that count or compare what a person sees, not storage units. All are pure, independent of the
// user's locale, and callable from any thread.
namespace fennick {

// Whether two texts are the same after canonical normalisation ("é" composed or decomposed).
bool canonicallyEqual(QStringView left, QStringView right);

// Negative, zero or positive as `left` sorts before, with or after `right` by Unicode scalar values.
// (QString's own order compares UTF-16 units, which puts U+FFFD after an emoji.)
int compareScalars(QStringView left, QStringView right);

// The first `count` user-perceived characters (extended grapheme clusters) of `text`.
QString firstCharacters(const QString &text, qsizetype count);

// The first `count` user-perceived characters, of 16 UTF-16 units each on average at the most: a single one
// may be of any size, for any number of accents may be piled upon a letter.
QString shortened(const QString &text, qsizetype count);

// `text` with unpaired surrogates replaced by U+FFFD, so that it survives being written as UTF-8.
QString wellFormed(const QString &text);

// Full, locale-independent case mappings; one character may become several.
QString upperCased(const QString &text);
QString lowerCased(const QString &text);

// `text` with its first user-perceived character upper-cased and the rest untouched.
QString firstCharacterUpperCased(const QString &text);

} // namespace fennick
