#pragma once

#include "conversion/converter_error.h"

#include <QString>
#include <QStringList>

#include <expected>

class QFile;

namespace fennick {

// Turns one receipt file into JPEG files for photo libraries, which take no PDF.
namespace ReceiptImageConverter {

// Every page of a PDF (200 dots per inch, on white) or the one picture of an image file (upright, its longer
// side at most 3000 pixels), as JPEG files named after `baseName` in a new folder below the temporary
// directory. Returns their paths in page order. The caller removes the files, including those written before
// a failure. Blocks for up to seconds; callable from any thread, and by several at once.
[[nodiscard]] std::expected<QStringList, ConverterError> convertToJPEGs(const QString &filePath,
                                                                        const QString &baseName);

// The same into an existing folder, from an open file; the extension of `fileName` determines its kind. A
// document's pages are divided among `processes` processes; more than one requires a program with one thread.
// Pages after one that failed may then have been written, too.
[[nodiscard]] std::expected<QStringList, ConverterError> convertInto(const QString &folder, QFile &file,
                                                                     const QString &fileName,
                                                                     const QString &baseName,
                                                                     int processes = 1);

// The same, opening the file, which must be a regular one.
[[nodiscard]] std::expected<QStringList, ConverterError>
convertInto(const QString &folder, const QString &filePath, const QString &baseName, int processes = 1);

} // namespace ReceiptImageConverter

} // namespace fennick
