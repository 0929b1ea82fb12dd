#pragma once

#include "extraction/gemini_error.h"
#include "extraction/gemini_receipt_data.h"

#include <QByteArray>

#include <expected>

namespace fennick::GeminiClient {

// The result that the service's HTTP answer holds, or the failure that it tells. Where a failure repeats the
// key, however it is spelled, "[API key]" stands. Pure.
std::expected<GeminiReceiptData, GeminiError> readAnswer(int statusCode, const QByteArray &body,
                                                         const QString &apiKey = {});

} // namespace fennick::GeminiClient
