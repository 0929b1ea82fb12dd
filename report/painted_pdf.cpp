#include "report/painted_pdf.h"

#include <QPageSize>

using namespace Qt::StringLiterals;

namespace fennick {

PaintedPdf::PaintedPdf(QSizeF pagePoints)
    : writer_(&buffer_) {
    constexpr int pointsPerInch = 72;
    buffer_.open(QIODevice::WriteOnly);
    writer_.setResolution(pointsPerInch * unitsPerPoint);
    writer_.setPageSize(QPageSize(pagePoints, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer_.setPageMargins({});
    painter_.begin(&writer_);
}

QByteArray PaintedPdf::finished() {
    painter_.end();
    return buffer_.data();
}

QFont reportFont(double points, QFont::Weight weight) {
    QFont font(u"Sans Serif"_s);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(points * PaintedPdf::unitsPerPoint));
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace fennick
