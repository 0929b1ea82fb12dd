#pragma once

#include "documents/document_error.h"

#include <QByteArray>
#include <QList>

#include <expected>

namespace fennick {

class PdfOutput;
class ReceiptPageWriter;

// Puts a picture into the report, upright on a page of its own shape. JPEG files and the pixels of PNG files
// stand in it byte for byte where a PDF can show them; other PNG, lossless WebP, GIF and BMP pictures keep
// every pixel. HEIC and other WebP pictures, which a PDF cannot hold, become JPEGs of high quality.
[[nodiscard]] std::expected<QList<int>, DocumentError>
writePictureReceipt(const QByteArray &file, int receipt, PdfOutput &output, ReceiptPageWriter &writer);

} // namespace fennick
