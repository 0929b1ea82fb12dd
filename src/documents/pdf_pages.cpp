#include "documents/pdf_pages.h"

#include "documents/pdf_media_boxes.h"
#include "documents/picture_limits.h"
#include "documents/yuv_picture.h"

#include <QBuffer>
#include <QPdfDocument>

#include <algorithm>
#include <cmath>
#include <mutex>
#include <utility>

namespace fennick {

namespace {

// PDF points are 1/72 inch, the pictures have 200 pixels an inch.
constexpr double pixelsPerPoint = 200.0 / 72.0;

// PDFium keeps global state and is not made for threads.
std::mutex pdfiumMutex;

double pixels(double points) {
    return std::max(1.0, std::round(points * pixelsPerPoint));
}

// Null for a page that is too large.
QSize pixelSize(QSizeF points) {
    const double width = pixels(points.width());
    const double height = pixels(points.height());
    if (width * height > static_cast<double>(converterLimits.pixels)) {
        return {};
    }
    return QSize(static_cast<int>(width), static_cast<int>(height));
}

} // namespace

std::unique_ptr<PdfPages> PdfPages::open(QFile &file) {
    std::optional<MediaBoxPdf> pdf = readWithMediaBoxes(file);
    if (!pdf) {
        return nullptr;
    }
    std::unique_ptr<PdfPages> pages(new PdfPages(std::move(pdf->bytes), std::move(pdf->pageSizes)));
    // A document without pages is open, too; PDFium would call it an error.
    if (pages->count() > 0 && pages->document_->status() != QPdfDocument::Status::Ready) {
        return nullptr;
    }
    return pages;
}

PdfPages::PdfPages(QByteArray bytes, std::vector<QSizeF> pageSizes)
    : bytes_(std::move(bytes))
    , pageSizes_(std::move(pageSizes))
    , buffer_(std::make_unique<QBuffer>(&bytes_)) {
    buffer_->open(QIODevice::ReadOnly);
    const std::scoped_lock lock(pdfiumMutex);
    document_ = std::make_unique<QPdfDocument>();
    if (count() > 0) {
        document_->load(buffer_.get());
    }
}

PdfPages::~PdfPages() {
    const std::scoped_lock lock(pdfiumMutex);
    document_.reset();
}

QImage PdfPages::render(int page) {
    const QSize size = pixelSize(pageSizes_[static_cast<std::size_t>(page)]);
    if (size.isEmpty()) {
        return {};
    }
    QPdfDocumentRenderOptions options;
    options.setRenderFlags(QPdfDocumentRenderOptions::RenderFlag::Annotations);
    QImage image;
    {
        const std::scoped_lock lock(pdfiumMutex);
        image = document_->render(page, size, options);
    }
    // PDFium draws on transparent pixels.
    blendOntoWhite(image);
    return image;
}

} // namespace fennick
