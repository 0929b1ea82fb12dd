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
    // The names of the members of `evidence` whose values are surely nowhere on the pages that were read.
    // Empty if too little of them was legible to be sure.
    QStringList missing;
    int pages = 0; // that were read, from the first on
};

// Looks for `values`, whoever has read or typed them, in the document `bytes` as the converter's pictures
// show it: all of a PDF's media boxes, with annotations. May take seconds, unless `stop` is requested;
// callable from any thread. `pagesOf` reads a PDF's pages.
std::expected<LocatedValues, ReadError> locateValues(const QByteArray &bytes, const ReceiptFields &values,
                                                     const std::stop_token &stop = {},
                                                     const PdfReading &pagesOf = readPdf);

} // namespace fennick::engine
