#include "samples/receipt_page.h"

#include <QFont>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr double rowsPerWidth = 19; // a paper roll holds some 45 letters
constexpr double marginShare = 0.06;

double rowHeight(const Row &row, double unit) {
    switch (row.style) {
    case RowStyle::Title:
        return unit * 1.7;
    case RowStyle::Strong:
        return unit * 1.35;
    case RowStyle::Rule:
    case RowStyle::Gap:
        return unit * 0.6;
    case RowStyle::Centre:
    case RowStyle::Item:
        return unit;
    }
    return unit;
}

QFont fontOf(const Row &row, double unit, bool typewriter) {
    QFont font(typewriter ? u"DejaVu Sans Mono"_s : u"DejaVu Sans"_s);
    const double share = row.style == RowStyle::Title ? 1.1 : row.style == RowStyle::Strong ? 0.85 : 0.65;
    font.setPixelSize(static_cast<int>(unit * share));
    font.setBold(row.style == RowStyle::Title || row.style == RowStyle::Strong);
    return font;
}

void drawRow(QPainter &painter, const Row &row, const QRectF &box) {
    if (row.style == RowStyle::Gap) {
        return;
    }
    if (row.style == RowStyle::Rule) {
        painter.setPen(QPen(Qt::black, box.height() / 12, Qt::DashLine));
        painter.drawLine(QPointF(box.left(), box.center().y()), QPointF(box.right(), box.center().y()));
        painter.setPen(Qt::black);
        return;
    }
    const bool centred = row.style == RowStyle::Title || row.style == RowStyle::Centre;
    painter.drawText(box, (centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter, row.left);
    painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, row.right);
}

} // namespace

void drawPage(QPainter &painter, const Page &page, double width, double unit, bool typewriter) {
    double top = 0;
    painter.setPen(Qt::black);
    for (const Row &row : page) {
        const double height = rowHeight(row, unit);
        painter.setFont(fontOf(row, unit, typewriter));
        drawRow(painter, row, QRectF(0, top, width, height));
        top += height;
    }
}

QImage pictureOf(const Page &page, int width, bool typewriter) {
    const double margin = width * marginShare;
    const double inner = width - 2 * margin;
    double height = 2 * margin;
    const double unit = inner / rowsPerWidth;
    for (const Row &row : page) {
        height += rowHeight(row, unit);
    }
    QImage picture(width, static_cast<int>(height), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.translate(margin, margin);
    drawPage(painter, page, inner, unit, typewriter);
    return picture;
}

} // namespace fennick
