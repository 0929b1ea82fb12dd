#include "report/margin_strip.h"

#include "report/painted_pdf.h"
#include "report/pdf_output.h"

#include <QFontMetricsF>

#include <algorithm>
#include <array>

namespace fennick {

namespace {

constexpr double padding = 8;
constexpr double lineSize = 9;

// The shorter side of an A4 page: on larger sheets the line is larger as well.
constexpr double usualWidth = 595;
constexpr double largestScale = 20;

double scaleOf(QSizeF shown, double lineWidth) {
    const double needed = lineWidth + 2 * padding;
    const double scale = std::clamp(std::min(shown.width(), shown.height()) / usualWidth, 1.0, largestScale);
    return std::min(scale, shown.width() / needed);
}

QByteArray numbers(const std::array<double, 6> &values) {
    QByteArray text;
    for (const double value : values) {
        text += pdfNumber(value) + ' ';
    }
    return text;
}

} // namespace

MarginStrips drawnStrips(const QStringList &lines) {
    MarginStrips strips;
    PaintedPdf pdf(stripSize);
    const QFont font = reportFont(lineSize, QFont::Normal);
    const QFontMetricsF metrics(font);
    const double most = (stripSize.width() - 2 * padding) * PaintedPdf::unitsPerPoint;
    const QRectF place(padding * PaintedPdf::unitsPerPoint, 0, most,
                       stripSize.height() * PaintedPdf::unitsPerPoint);
    pdf.painter().setFont(font);
    for (const QString &line : lines) {
        if (!strips.widths.isEmpty()) {
            pdf.newPage();
        }
        const QString shown = metrics.elidedText(line, Qt::ElideRight, most);
        pdf.painter().drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
        strips.widths.append(std::min(most, metrics.horizontalAdvance(shown)) / PaintedPdf::unitsPerPoint);
    }
    strips.pdf = pdf.finished();
    return strips;
}

MarginPlace placedMargin(const QRectF &visible, int quarterTurns, double lineWidth) {
    const bool isOnItsSide = quarterTurns % 2 != 0;
    const QSizeF shown = isOnItsSide ? visible.size().transposed() : visible.size();
    const double scale = scaleOf(shown, lineWidth);
    const double height = stripSize.height() * scale;
    MarginPlace place{.pageBox = visible,
                      .strip = visible,
                      .transformation = {},
                      .ownSize = QSizeF(shown.width() / scale, stripSize.height())};
    // QRectF's top is the lower edge here.
    const double left = visible.left();
    const double right = visible.right();
    const double lower = visible.top();
    const double upper = visible.bottom();
    switch (quarterTurns) {
    case 1:
        place.pageBox.setLeft(left - height);
        place.strip.setRect(left - height, lower, height, visible.height());
        place.transformation = numbers({0, scale, -scale, 0, left, lower});
        break;
    case 2:
        place.pageBox.setTop(lower - height);
        place.strip.setRect(left, lower - height, visible.width(), height);
        place.transformation = numbers({-scale, 0, 0, -scale, right, lower});
        break;
    case 3:
        place.pageBox.setRight(right + height);
        place.strip.setRect(right, lower, height, visible.height());
        place.transformation = numbers({0, -scale, scale, 0, right, upper});
        break;
    default:
        place.pageBox.setBottom(upper + height);
        place.strip.setRect(left, upper, visible.width(), height);
        place.transformation = numbers({scale, 0, 0, scale, left, upper});
        break;
    }
    return place;
}

} // namespace fennick
