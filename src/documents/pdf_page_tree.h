#pragma once

class QPDF;

namespace fennick {

// Whether the page tree is no deeper and no larger than any real one. libqpdf walks it by recursion: some ten
// thousand levels overflow its stack, some thousand take minutes, and PDFium does no better. Loops are
// reported by the library. Call this before anything else that reads the document's pages; throws what
// libqpdf throws for a file that is no PDF.
[[nodiscard]] bool hasReasonablePageTree(QPDF &document);

} // namespace fennick
