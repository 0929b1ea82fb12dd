#pragma once

#include "engine/recognition/pdf_reader.h"
#include "engine/recognition/read_error.h"
#include "engine/recognition/text_line.h"

#include <QByteArray>
#include <QList>

#include <expected>
#include <functional>
#include <stop_token>

namespace fennick::engine {

// Tells from the readings so far whether further ones would add nothing.
using Sufficiency = std::function<bool(const QList<Reading> &readings)>;

// The text of a document (PDF, JPEG, PNG, WebP or HEIC) over its first five pages, at least one reading of
// it. A PDF's own text has a single one; pictures are looked at in pairs of different ways until `isEnough`.
// May take seconds: call it off the main thread. Any number of threads may; they share the processors. Ends
// soon after `stop` is requested, without a reading. `pagesOf` reads a PDF's pages.
[[nodiscard]] std::expected<QList<Reading>, ReadError> readDocument(const QByteArray &bytes,
                                                                    const Sufficiency &isEnough,
                                                                    const std::stop_token &stop = {},
                                                                    const PdfReading &pagesOf = readPdf);

} // namespace fennick::engine
