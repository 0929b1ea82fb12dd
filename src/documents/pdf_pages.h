#pragma once

#include "documents/pdf_checker.h"

#include <QBuffer>
#include <QImage>
#include <QPdfDocument>

#include <memory>
#include <mutex>

namespace fennick {

// The pages of one checked PDF, open in the renderer. PDFium keeps global state and is not made for threads:
// while one object exists, other threads wait in open(). A thread has one object at a time.
class PdfPages {
public:
    [[nodiscard]] static std::expected<std::unique_ptr<PdfPages>, DocumentError> open(const QByteArray &bytes,
                                                                                      const PdfUse &use);

    Q_DISABLE_COPY_MOVE(PdfPages)

    int count() const { return static_cast<int>(pdf_.pages.size()); }
    const CheckedPage &page(int index) const { return pdf_.pages[static_cast<std::size_t>(index)]; }

    // The page at this size in pixels, on white, in the format RGB32. Null if it cannot be rendered.
    [[nodiscard]] QImage render(int index, QSize size);

    // For the text and the size of its pages.
    QPdfDocument &document() { return document_; }

private:
    PdfPages(CheckedPdf pdf, const PdfUse &use);

    CheckedPdf pdf_;
    bool annotations_;
    std::unique_lock<std::mutex> turn_;
    QBuffer buffer_;
    QPdfDocument document_;
};

} // namespace fennick
