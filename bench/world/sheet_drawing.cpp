#include "sheet_drawing.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QString fallbackFamily = u"DejaVu Sans Mono"_s;

QFont fontOf(const SheetLook &look, const SheetRow &row, double letterHeight) {
    QFont font(look.family);
    font.setPixelSize(std::max(4, static_cast<int>(letterHeight * row.scale)));
    font.setBold(row.isBold);
    return font;
}

// The height at which `columns` letters are as wide as the sheet.
double letterHeightFor(const ReceiptSheet &sheet, const SheetLook &look, double width) {
    QFont font(look.family);
    font.setPixelSize(100);
    const double widthOfALetter = QFontMetricsF(font).horizontalAdvance(u"0"_s) / 100;
    return width / sheet.columns / std::max(0.45, widthOfALetter);
}

double rowHeight(const SheetRow &row, const SheetLook &look, double letterHeight) {
    switch (row.kind) {
    case RowKind::rule:
    case RowKind::gap:
        return letterHeight * look.rowHeight * 0.8;
    case RowKind::barcode:
        return letterHeight * 4;
    case RowKind::qrCode:
        return letterHeight * 7;
    case RowKind::text:
    case RowKind::centred:
        break;
    }
    return letterHeight * look.rowHeight * row.scale;
}

void drawRule(QPainter &painter, const SheetRow &row, const QRectF &box) {
    const QString character = row.cells.value(0);
    if (character.isEmpty()) {
        painter.fillRect(QRectF(box.left(), box.center().y(), box.width(), std::max(1.0, box.height() / 14)),
                         painter.pen().color());
        return;
    }
    const double width = std::max(1.0, QFontMetricsF(painter.font()).horizontalAdvance(character));
    const int count = static_cast<int>(box.width() / width + 0.01);
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, character.repeated(count));
}

void drawBarcode(QPainter &painter, const SheetRow &row, const QRectF &box) {
    SeededRandom bars(row.cells.value(0).toUtf8());
    const double unit = box.width() / 180;
    for (double x = box.left() + box.width() * 0.15; x < box.right() - box.width() * 0.15;) {
        const double bar = unit * bars.between(1, 3);
        painter.fillRect(QRectF(x, box.top() + box.height() * 0.15, bar, box.height() * 0.7),
                         painter.pen().color());
        x += bar + unit * bars.between(1, 3);
    }
}

void drawQrCode(QPainter &painter, const SheetRow &row, const QRectF &box) {
    constexpr int modules = 25;
    SeededRandom dots(row.cells.value(0).toUtf8());
    const double unit = box.height() * 0.9 / modules;
    const QPointF corner(box.center().x() - unit * modules / 2, box.top() + box.height() * 0.05);
    for (int index = 0; index < modules * modules; ++index) {
        if (dots.chance(0.5)) {
            const QPointF place(unit * (index % modules), unit * (index / modules));
            painter.fillRect(QRectF(corner + place, QSizeF(unit * 1.02, unit * 1.02)), painter.pen().color());
        }
    }
}

void drawCells(QPainter &painter, const SheetRow &row, const QRectF &box) {
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, row.cells.first());
    const auto count = static_cast<double>(row.cells.size());
    for (qsizetype index = 1; index < row.cells.size(); ++index) {
        const double end = row.ends.isEmpty() ? static_cast<double>(index + 1) / count : row.ends[index - 1];
        painter.drawText(QRectF(box.left(), box.top(), box.width() * end, box.height()),
                         Qt::AlignRight | Qt::AlignVCenter, row.cells[index]);
    }
}

// Bold letters of proportional fonts may be wider than those that the row was fitted with.
void narrow(QPainter &painter, const SheetRow &row, double width) {
    const double needed = QFontMetricsF(painter.font()).horizontalAdvance(row.cells.join(u' '));
    if (needed > width) {
        QFont font = painter.font();
        font.setPixelSize(std::max(4, static_cast<int>(font.pixelSize() * width / needed)));
        painter.setFont(font);
    }
}

void drawText(QPainter &painter, const SheetRow &row, const QRectF &box) {
    narrow(painter, row, box.width());
    const QPen pen = painter.pen();
    if (row.isInverse) {
        painter.fillRect(box, pen.color());
        painter.setPen(Qt::white);
    }
    if (row.kind == RowKind::centred) {
        painter.drawText(box, Qt::AlignHCenter | Qt::AlignVCenter, row.cells.first());
    } else {
        drawCells(painter, row, box);
    }
    painter.setPen(pen);
}

void drawRow(QPainter &painter, const SheetRow &row, const QRectF &box) {
    switch (row.kind) {
    case RowKind::gap:
        break;
    case RowKind::rule:
        drawRule(painter, row, box);
        break;
    case RowKind::barcode:
        drawBarcode(painter, row, box);
        break;
    case RowKind::qrCode:
        drawQrCode(painter, row, box);
        break;
    case RowKind::text:
    case RowKind::centred:
        drawText(painter, row, box);
        break;
    }
}

bool hasAllLetters(const QString &family, const ReceiptSheet &sheet) {
    const QFontMetricsF metrics{QFont(family)};
    for (const SheetRow &row : sheet.rows) {
        for (const uint letter : row.cells.join(QString()).toUcs4()) {
            if (!metrics.inFontUcs4(letter)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

SheetLook chosenLook(const ReceiptSheet &sheet, bool isForDocuments, SeededRandom &random) {
    static const QStringList tills = {u"DejaVu Sans Mono"_s,
                                      u"Liberation Mono"_s,
                                      u"Hack"_s,
                                      u"Inconsolata"_s,
                                      u"FreeMono"_s,
                                      u"Noto Mono"_s,
                                      u"IBM 3270"_s,
                                      u"Anonymous Pro"_s,
                                      u"DotGothic16"_s,
                                      u"Liberation Sans Narrow"_s};
    static const QStringList documents = {u"Liberation Sans"_s, u"DejaVu Sans"_s, u"Liberation Serif"_s,
                                          u"DejaVu Sans Mono"_s, u"Liberation Mono"_s};
    SheetLook look{.family = random.oneOf(isForDocuments ? documents : tills),
                   .rowHeight = random.between(1.15, 1.5)};
    if (!QFontDatabase::hasFamily(look.family) || !hasAllLetters(look.family, sheet)) {
        look.family = fallbackFamily;
    }
    return look;
}

double sheetHeight(const ReceiptSheet &sheet, const SheetLook &look, double width) {
    const double letterHeight = letterHeightFor(sheet, look, width);
    double height = 0;
    for (const SheetRow &row : sheet.rows) {
        height += rowHeight(row, look, letterHeight);
    }
    return height;
}

void drawSheet(QPainter &painter, const ReceiptSheet &sheet, const SheetLook &look, double width) {
    const double letterHeight = letterHeightFor(sheet, look, width);
    double top = 0;
    for (const SheetRow &row : sheet.rows) {
        const double height = rowHeight(row, look, letterHeight);
        painter.setFont(fontOf(look, row, letterHeight));
        drawRow(painter, row, QRectF(0, top, width, height));
        top += height;
    }
}

} // namespace fennick
