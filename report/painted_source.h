#pragma once

#include <QByteArray>
#include <QSizeF>

#include <map>
#include <memory>
#include <string>

namespace fennick {

class PdfOutput;

// The pages that Qt has drawn, on their way into the report. Throws what libqpdf throws.
class PaintedSource {
public:
    PaintedSource(const QByteArray &pdf, PdfOutput *output);
    ~PaintedSource();
    Q_DISABLE_COPY_MOVE(PaintedSource)

    int pageCount() const;

    // References to the page's drawing instructions.
    [[nodiscard]] QByteArray contents(int page);
    [[nodiscard]] std::map<std::string, QByteArray> resources(int page);

    // Writes the page as a form of this size in points, to be drawn on other pages; returns its number.
    [[nodiscard]] int writeForm(int page, QSizeF size);

    void finish();

private:
    struct Document; // keeps libqpdf's headers out of ours

    std::unique_ptr<Document> document_;
    PdfOutput *output_;
};

} // namespace fennick
