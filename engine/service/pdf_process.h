#pragma once

#include "engine/recognition/pdf_reader.h"

#include <QString>

namespace fennick::engine {

// As readPdf, in a process of its own: what libqpdf and PDFium have begun cannot be stopped, and a small file
// can keep them at work for ever, at the cost of all other requests. The process gets a limited share of
// memory and processor time; a document that takes more is given up with TookTooMuch. `program`: the engine's
// file. Callable from any thread, which waits.
std::expected<QList<PdfPage>, ReadError> readPdfApart(const QString &program, const QByteArray &bytes,
                                                      int pageLimit, const std::stop_token &stop);

// The other side: reads the document that comes in on standard input and writes what it holds to standard
// output. Returns the exit code.
int serveReadPdfApart(int pageLimit);

// The argument by which the engine is asked to be that side; the number of pages follows.
extern const QString readPdfArgument;

} // namespace fennick::engine
