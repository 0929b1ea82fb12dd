#pragma once

#include "documents/document_error.h"

#include <QByteArray>
#include <QSizeF>

#include <expected>
#include <limits>
#include <vector>

namespace fennick {

// What a program wants of a PDF.
struct PdfUse {
    // Pages after these are neither checked nor used.
    int pageLimit = std::numeric_limits<int>::max();
    // Shows each page's whole media box. Otherwise its crop box is shown, as in a viewer.
    bool wholeMediaBoxes = false;
    bool annotations = false;
};

struct CheckedPage {
    // The media box in points (1/72 inch) as it stands upright: a quarter turn exchanges width and height.
    QSizeF mediaBox;
    // Whether any font is available on it. (Qt PDF leaks a page whose text is requested when there is none.)
    bool hasFonts = false;
};

// A repaired, decrypted copy of a PDF that is safe to render.
struct CheckedPdf {
    QByteArray bytes;
    std::vector<CheckedPage> pages;
};

// PDFium never returns from a page tree that loops, overflows its stack in one that is too deep, and
// allocates whatever an image claims to need or a stream unpacks to. This function finds all of that first,
// on the pages that are used. A document that requires a password or has no pages is an error as well.
[[nodiscard]] std::expected<CheckedPdf, DocumentError> checkedPdf(const QByteArray &bytes, const PdfUse &use);

} // namespace fennick
