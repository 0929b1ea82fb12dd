#pragma once

#include "report/foreign_objects.h"

#include <QByteArray>
#include <QSizeF>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include <map>
#include <string>
#include <vector>

namespace fennick {

// The pages that Qt has drawn, on their way into the report. Throws what libqpdf throws.
class PaintedSource {
public:
    PaintedSource(QByteArray pdf, PdfOutput *output);

    int pageCount() const { return static_cast<int>(pages_.size()); }

    // References to the page's drawing instructions.
    [[nodiscard]] QByteArray contents(int page);
    [[nodiscard]] std::map<std::string, QByteArray> resources(int page);

    // Writes the page as a form of this size in points, to be drawn on other pages; returns its number.
    [[nodiscard]] int writeForm(int page, QSizeF size);

    void finish() { objects_.finish(); }

private:
    QByteArray bytes_;
    QPDF document_;
    std::vector<QPDFPageObjectHelper> pages_;
    ForeignObjects objects_;
    PdfOutput *output_;
};

} // namespace fennick
