#include "ui/main_window/tabular_digits_delegate.h"

#include <QPainter>

#include <cmath>

namespace fennick {

namespace {

// A digit in its column, or what stands between digits.
struct Piece {
    QString text;
    double width;
    double indent; // of the text within the width
};

// Of the digits that `digit` belongs to: every script has ten in a row.
double widestDigit(QChar digit, const QFontMetricsF &metrics) {
    const char16_t zero = static_cast<char16_t>(digit.unicode() - digit.digitValue());
    double widest = 0;
    for (char16_t value = 0; value < 10; ++value) {
        widest = std::max(widest, metrics.horizontalAdvance(QChar(static_cast<char16_t>(zero + value))));
    }
    return widest;
}

QList<Piece> piecesOf(const QString &text, const QFontMetricsF &metrics) {
    QList<Piece> pieces;
    double column = 0; // one script's digits stand in a text
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start + 1;
        if (text.at(start).isDigit()) {
            column = column > 0 ? column : widestDigit(text.at(start), metrics);
            pieces.append(
                {text.mid(start, 1), column, (column - metrics.horizontalAdvance(text.at(start))) / 2});
        } else {
            while (end < text.size() && !text.at(end).isDigit()) {
                ++end;
            }
            const QString between = text.mid(start, end - start);
            pieces.append({between, metrics.horizontalAdvance(between), 0});
        }
        start = end;
    }
    return pieces;
}

double widthOf(const QList<Piece> &pieces) {
    double width = 0;
    for (const Piece &piece : pieces) {
        width += piece.width;
    }
    return width;
}

} // namespace

void TabularDigitsDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const {
    const QString text = index.data().toString();
    const QRect area = textArea(option);
    const QFontMetricsF metrics(option.font);
    const QList<Piece> pieces = piecesOf(text, metrics);
    if (text.isRightToLeft() || widthOf(pieces) > area.width()) {
        CellDelegate::paint(painter, option, index);
        return;
    }
    paintCellBackground(painter, option, index);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(textColor(option));
    QPointF place(area.left(), area.top() + (area.height() - metrics.height()) / 2 + metrics.ascent());
    for (const Piece &piece : pieces) {
        painter->drawText(place + QPointF(piece.indent, 0), piece.text);
        place.rx() += piece.width;
    }
    painter->restore();
}

QSize TabularDigitsDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const QString text = index.data().toString();
    const QFontMetricsF metrics(option.font);
    const double further = widthOf(piecesOf(text, metrics)) - metrics.horizontalAdvance(text);
    return CellDelegate::sizeHint(option, index) + QSize(static_cast<int>(std::ceil(further)), 0);
}

} // namespace fennick
