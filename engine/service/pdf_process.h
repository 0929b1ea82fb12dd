#pragma once

#include "engine/recognition/pdf_reader.h"

#include <QStringList>

namespace fennick::engine {

// As readPdf, in a process of its own: what libqpdf and PDFium have begun cannot be stopped, and a small file
// can keep them at work for ever, at the cost of all other requests. The process gets a limited share of
// memory and processor time; a document that takes more is given up with TookTooMuch. `program`: the engine's
// file. Callable from any thread, which waits.
std::expected<QList<PdfPage>, ReadError> readPdfApart(const QString &program, const QByteArray &bytes,
                                                      const PdfUse &use, const std::stop_token &stop);

// The other side: reads the document that comes in on standard input and writes what it holds to standard
// output. Returns the exit code. `arguments`: those of the process, without the program's name.
int serveReadPdfApart(const QStringList &arguments);

// The first argument by which the engine is asked to be that side.
extern const QString readPdfArgument;

} // namespace fennick::engine
