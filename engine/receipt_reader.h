#pragma once

#include "engine/read_error.h"
#include "engine/receipt_fields.h"

#include <QByteArray>
#include <QDate>

#include <expected>
#include <stop_token>

namespace fennick {

// What the receipt in `bytes` (PDF, JPEG, PNG, WebP or HEIC) says. May take seconds, unless `stop` is
// requested; callable from any thread.
std::expected<ReceiptFields, ReadError> readReceiptFile(const QByteArray &bytes, QDate today,
                                                        const std::stop_token &stop = {});

} // namespace fennick
