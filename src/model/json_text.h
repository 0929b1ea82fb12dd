#pragma once

#include <QByteArray>
#include <QString>

namespace fennick {

// Appends `text` as a JSON string in UTF-8: quotes, backslashes, slashes and control characters escaped,
// unpaired surrogates replaced by U+FFFD.
void appendJsonString(QByteArray &json, const QString &text);

// Appends the shortest JSON number that reads back as `value`, which must be finite. Whole numbers beyond
// 64 bits get an exponent, because readers refuse integers of that size.
void appendJsonNumber(QByteArray &json, double value);

} // namespace fennick
