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
    // Makes the crop box of each page its media box, so that all of it is rendered. Otherwise only the crop
    // box is, as in a viewer.
    bool wholeMediaBoxes = false;
    // Whether annotations are rendered; for whoever renders.
    bool annotations = false;
};

struct CheckedPage {
    // The media box in points (1/72 inch) after the page's rotation, whichever box is rendered.
    QSizeF mediaBox;
    // Whether any font is available on it. (Qt PDF leaks a page whose text is requested when there is none.)
    bool hasFonts = false;
};

// A repaired, decrypted copy of a PDF. The first `pages.size()` of its pages were checked and are safe to
// render.
struct CheckedPdf {
    QByteArray bytes;
    std::vector<CheckedPage> pages;
};

// PDFium never returns from a page tree that loops, overflows its stack in one that is too deep, and
// allocates whatever an image claims to need or a stream unpacks to. This function rejects documents with any
// of that on the pages that are used, and those that require a password or have no pages. Any thread.
[[nodiscard]] std::expected<CheckedPdf, DocumentError> checkedPdf(const QByteArray &bytes, const PdfUse &use);

} // namespace fennick
