#include "documents/pdf_pages.h"

#include "documents/yuv_picture.h"

#include <utility>

namespace fennick {

namespace {

std::mutex pdfiumMutex;

DocumentError loadError(const QPdfDocument &document) {
    switch (document.error()) {
    case QPdfDocument::Error::IncorrectPassword:
    case QPdfDocument::Error::UnsupportedSecurityScheme:
        return DocumentError::lockedPdf;
    default:
        return DocumentError::unreadablePdf;
    }
}

} // namespace

std::expected<std::unique_ptr<PdfPages>, DocumentError> PdfPages::open(const QByteArray &bytes,
                                                                       const PdfUse &use) {
    std::expected<CheckedPdf, DocumentError> pdf = checkedPdf(bytes, use);
    if (!pdf) {
        return std::unexpected(pdf.error());
    }
    std::unique_ptr<PdfPages> pages(new PdfPages(*std::move(pdf), use));
    if (pages->document_.status() != QPdfDocument::Status::Ready) {
        return std::unexpected(loadError(pages->document_));
    }
    return pages;
}

PdfPages::PdfPages(CheckedPdf pdf, const PdfUse &use)
    : pdf_(std::move(pdf))
    , annotations_(use.annotations)
    , turn_(pdfiumMutex)
    , buffer_(&pdf_.bytes) {
    buffer_.open(QIODevice::ReadOnly);
    document_.load(&buffer_);
}

QImage PdfPages::render(int index, QSize size) {
    QPdfDocumentRenderOptions options;
    if (annotations_) {
        options.setRenderFlags(QPdfDocumentRenderOptions::RenderFlag::Annotations);
    }
    QImage image = document_.render(index, size, options);
    // PDFium draws on transparent pixels.
    blendOntoWhite(image);
    image.reinterpretAsFormat(QImage::Format_RGB32);
    return image;
}

} // namespace fennick
