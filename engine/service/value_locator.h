#pragma once

#include "engine/fields/receipt_fields.h"
#include "engine/recognition/document_reader.h"
#include "engine/recognition/read_error.h"

#include <QByteArray>
#include <QStringList>

#include <expected>
#include <stop_token>

namespace fennick::engine {

// Where the values of a receipt stand on its pages.
struct LocatedValues {
    ReceiptEvidence evidence;
    // The names of the members of `evidence` whose values are surely nowhere on the pages that were read:
    // date, time, total, currency or merchant. Empty if too little of the pages was legible to be sure.
    QStringList missing;
    int pages = 0; // that were read, from the first on
};

// Looks for `values`, whatever their source, in the document `bytes` as the converter's pictures show it: a
// picture, or the first pages of a PDF with their whole media boxes and annotations. Blocks for seconds,
// waiting first while two other documents are being read; once it reads itself, it ends soon after `stop` is
// requested. Any thread. `pagesOf` reads a PDF's pages.
std::expected<LocatedValues, ReadError> locateValues(const QByteArray &bytes, const ReceiptFields &values,
                                                     const std::stop_token &stop = {},
                                                     const PdfReading &pagesOf = readPdf);

} // namespace fennick::engine
