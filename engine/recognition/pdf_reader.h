#pragma once

#include "documents/pdf_checker.h"
#include "engine/recognition/read_error.h"
#include "engine/recognition/text_line.h"

#include <QByteArray>
#include <QImage>
#include <QList>

#include <expected>
#include <functional>
#include <stop_token>

namespace fennick::engine {

// One page of a PDF: its own text, or a grey picture of it (300 dpi, on white) when it has none worth
// reading.
struct PdfPage {
    QList<TextLine> lines;
    QImage picture;
};

// Reads as many pages, and as much of each, as `use` wants. Callable from any thread; one document is read at
// a time, because PDFium supports only one thread. Ends after the current page if `stop` is requested.
[[nodiscard]] std::expected<QList<PdfPage>, ReadError> readPdf(const QByteArray &bytes, const PdfUse &use,
                                                               const std::stop_token &stop = {});

// A way to read a PDF: as above, or in a process of its own.
using PdfReading = std::function<std::expected<QList<PdfPage>, ReadError>(
    const QByteArray &bytes, const PdfUse &use, const std::stop_token &stop)>;

} // namespace fennick::engine
