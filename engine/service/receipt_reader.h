#pragma once

#include "engine/fields/receipt_fields.h"
#include "engine/recognition/pdf_reader.h"
#include "engine/recognition/read_error.h"

#include <QByteArray>
#include <QDate>

#include <expected>
#include <stop_token>

namespace fennick::engine {

// What the receipt in `bytes` (PDF, JPEG, PNG, WebP or HEIC) says. May take seconds, unless `stop` is
// requested; callable from any thread. `pagesOf` reads a PDF's pages.
std::expected<ReceiptFields, ReadError> readReceiptFile(const QByteArray &bytes, QDate today,
                                                        const std::stop_token &stop = {},
                                                        const PdfReading &pagesOf = readPdf);

} // namespace fennick::engine
