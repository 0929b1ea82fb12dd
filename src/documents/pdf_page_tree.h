#pragma once

class QPDF;

namespace fennick {

// Whether the page tree is no deeper and no larger than any real one. libqpdf walks it by recursion, which
// some ten thousand levels turn into a stack overflow and some thousand into minutes, and PDFium does no
// better. Loops are left for the library to report. To be asked before anything else about the document's
// pages; throws what libqpdf throws for what is no PDF.
bool hasReasonablePageTree(QPDF &document);

} // namespace fennick
