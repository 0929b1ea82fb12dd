#pragma once

#include "extraction/gemini_error.h"
#include "extraction/gemini_receipt_data.h"

#include <QByteArray>

#include <expected>

namespace fennick::GeminiClient {

// The result in the service's HTTP answer, or the failure that it reports. In a failure's text, "[API key]"
// replaces the key, however it is spelled. Pure.
[[nodiscard]] std::expected<GeminiReceiptData, GeminiError> readAnswer(int statusCode, const QByteArray &body,
                                                                       const QString &apiKey = {});

} // namespace fennick::GeminiClient
