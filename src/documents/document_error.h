#pragma once

namespace fennick {

// Why a document is not opened.
enum class DocumentError { unreadableImage, imageTooLarge, unreadablePdf, pdfTooLarge, lockedPdf, emptyPdf };

} // namespace fennick
