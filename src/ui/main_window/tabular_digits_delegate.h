#pragma once

#include "ui/main_window/receipt_delegates.h"

namespace fennick {

// Gives every digit of a cell the width of the widest, so that the numbers of a column stand below one
// another in any font. A text that does not fit, or runs from right to left, is left to the style.
class TabularDigitsDelegate : public CellDelegate {
public:
    using CellDelegate::CellDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace fennick
