#pragma once

#include <QByteArray>
#include <QImage>
#include <QSizeF>

#include <memory>
#include <vector>

class QBuffer;
class QFile;
class QPdfDocument;

namespace fennick {

// The pages of one PDF file as pictures, whole media boxes at 200 dots per inch on white. To be used by one
// thread; several objects may be used by several threads, which then take turns in rendering.
class PdfPages {
public:
    // Null when the file cannot be used: unreadable, not a PDF, or locked by a password. The file is needed
    // for as long as this takes only.
    static std::unique_ptr<PdfPages> open(QFile &file);

    ~PdfPages();
    Q_DISABLE_COPY_MOVE(PdfPages)

    int count() const { return static_cast<int>(pageSizes_.size()); }

    // The page (first: 0), opaque. Null when it is too large or cannot be rendered.
    QImage render(int page);

private:
    PdfPages(QByteArray bytes, std::vector<QSizeF> pageSizes);

    QByteArray bytes_;
    std::vector<QSizeF> pageSizes_;
    std::unique_ptr<QBuffer> buffer_;
    std::unique_ptr<QPdfDocument> document_;
};

} // namespace fennick
