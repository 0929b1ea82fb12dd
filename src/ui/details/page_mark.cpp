#include "ui/details/page_mark.h"

#include <QPainter>

namespace fennick {

namespace {

constexpr double markPadding = 3; // pixels
constexpr double markRadius = 3;
constexpr int darkestPaperTone = 110; // of 255
constexpr int quietTone = 28;         // how much of the colour tints the paper, of 255
constexpr int emphasisedTone = 72;
constexpr double quietLine = 1;
constexpr double emphasisedLine = 3;
constexpr double rim = 1.5;

QColor onPaper(QColor colour) {
    while (qGray(colour.rgb()) > darkestPaperTone) {
        colour = colour.darker(115);
    }
    return colour;
}

QColor mixedWithWhite(const QColor &colour, int tone) {
    const auto mixed = [tone](int part) {
        return 255 - (255 - part) * tone / 255;
    };
    return QColor(mixed(colour.red()), mixed(colour.green()), mixed(colour.blue()));
}

} // namespace

QRectF PageMark::frameOn(const QSize &page) const {
    const QRectF place(area.x() * page.width(), area.y() * page.height(), area.width() * page.width(),
                       area.height() * page.height());
    return place.adjusted(-markPadding, -markPadding, markPadding, markPadding);
}

void paintMark(QPainter &painter, const QRectF &frame, bool isEmphasised, const QPalette &palette) {
    const QColor colour = onPaper(palette.color(QPalette::Active, QPalette::Highlight));
    // In the middle of pixels: a line between two of them would be pale.
    const QRectF outline = QRectF(frame.toAlignedRect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double line = isEmphasised ? emphasisedLine : quietLine;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixedWithWhite(colour, isEmphasised ? emphasisedTone : quietTone));
    painter.setCompositionMode(QPainter::CompositionMode_Multiply); // darkens paper, leaves print black
    painter.drawRoundedRect(outline, markRadius, markRadius);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 160), line + 2 * rim));
    painter.drawRoundedRect(outline, markRadius, markRadius);
    painter.setPen(QPen(colour, line));
    painter.drawRoundedRect(outline, markRadius, markRadius);
    painter.restore();
}

} // namespace fennick
