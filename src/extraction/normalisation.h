#pragma once

#include "extraction/gemini_error.h"
#include "extraction/gemini_receipt_data.h"

#include <QJsonObject>

#include <expected>

// From the model's answer text to a result in two pure steps, callable from any thread.
namespace fennick::GeminiClient {

// The JSON object in the text: the whole text, or else what lies between its first "{" and its last "}", for
// models put words or code fences around it. Fails with `parse` and the first 500 characters of the text.
[[nodiscard]] std::expected<QJsonObject, GeminiError> extractJSON(const QString &text);

// Drops every value that does not fit; category and summary get a fallback. Location and summary have at most
// 1,000 characters.
GeminiReceiptData normalize(const QJsonObject &answer);

} // namespace fennick::GeminiClient
