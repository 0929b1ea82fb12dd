#pragma once

#include "extraction/gemini_error.h"
#include "extraction/gemini_receipt_data.h"
#include "extraction/service_address.h"
#include "platform/regular_file.h"

#include <QCoroTask>
#include <QString>

#include <expected>
#include <stop_token>

// The client of the extraction service: one receipt file, one HTTPS request, one result. It keeps no state,
// caches nothing and retries nothing.
namespace fennick::GeminiClient {

// Sends the whole file with the instruction to the service at this address and awaits its answer; fails after
// 60 seconds without progress, and when the answer goes beyond AnswerLimits. Never blocks the calling thread:
// reading and encoding the file happen on a worker thread. The key stays out of every error text.
// `serviceEnd` is requested on the calling thread when the service has ended: the scan then fails at once.
[[nodiscard]] QCoro::Task<std::expected<GeminiReceiptData, ScanError>>
scan(FileToRead file, QString apiKey, QString model, QString serviceAddress, std::stop_token serviceEnd = {});

// Loads what the first request needs (TLS), so that it is as prompt as the others. Returns at once.
void prepare();

} // namespace fennick::GeminiClient
