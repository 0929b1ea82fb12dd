#pragma once

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QString>

#include <memory>
#include <vector>

class QBuffer;
class QPdfDocument;

namespace fennick {

// The pages of one PDF file as pictures, whole media boxes at 200 dots per inch on white. To be used by one
// thread; several objects may be used by several threads, which then take turns in rendering.
class PdfPages {
public:
    // Null when the file cannot be opened: unreadable, not a PDF, or locked by a password.
    static std::unique_ptr<PdfPages> open(const QString &path);

    ~PdfPages();
    Q_DISABLE_COPY_MOVE(PdfPages)

    int count() const { return static_cast<int>(m_pageSizes.size()); }

    // The page (first: 0), opaque. Null when it is too large or cannot be rendered.
    QImage render(int page);

private:
    PdfPages(QByteArray bytes, std::vector<QSizeF> pageSizes);

    QByteArray m_bytes;
    std::vector<QSizeF> m_pageSizes;
    std::unique_ptr<QBuffer> m_buffer;
    std::unique_ptr<QPdfDocument> m_document;
};

} // namespace fennick
