#pragma once

#include "extraction/gemini_error.h"
#include "extraction/gemini_receipt_data.h"

#include <QByteArray>

#include <expected>

namespace fennick::GeminiClient {

// The result that the service's HTTP answer holds, or the failure that it tells. Pure.
std::expected<GeminiReceiptData, GeminiError> readAnswer(int statusCode, const QByteArray &body);

} // namespace fennick::GeminiClient
