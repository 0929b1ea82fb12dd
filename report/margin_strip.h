#pragma once

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QStringList>

namespace fennick {

// The lines of all receipts, each on a page of its own as large as `stripSize`.
struct MarginStrips {
    QByteArray pdf;
    QList<double> widths; // of the lines, in points
};

inline constexpr QSizeF stripSize{640, 22};

[[nodiscard]] MarginStrips drawnStrips(const QStringList &lines);

// Where the strip of a page stands: above what is seen of it, as the page is read.
struct MarginPlace {
    QRectF pageBox;            // the page with its strip
    QRectF strip;              // on the page; `top` is the smaller y
    QByteArray transformation; // from the strip's own coordinates, six numbers
    QSizeF ownSize;            // of the strip in its own coordinates
};

// `visible` is what is seen of the page, shown turned by so many quarter turns clockwise. A line that is
// wider than the page becomes smaller.
[[nodiscard]] MarginPlace placedMargin(const QRectF &visible, int quarterTurns, double lineWidth);

} // namespace fennick
