#pragma once

#include "documents/document_error.h"

#include <QByteArray>
#include <QList>

#include <expected>

namespace fennick {

class PdfOutput;
class ReceiptPageWriter;

// Puts the pages of a PDF into the report: their instructions, pictures and fonts byte for byte, with what
// forms and notes show, but nothing else of the document. Returns the pages' objects.
[[nodiscard]] std::expected<QList<int>, DocumentError>
writePdfReceipt(const QByteArray &file, int receipt, PdfOutput &output, ReceiptPageWriter &writer);

} // namespace fennick
