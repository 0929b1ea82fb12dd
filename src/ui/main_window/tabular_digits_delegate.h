#pragma once

#include "ui/main_window/receipt_delegates.h"

namespace fennick {

// Draws all digits of a cell with the width of the widest one, so that the numbers of a column line up in
// any font. Leaves texts that do not fit or run from right to left to the style.
class TabularDigitsDelegate : public CellDelegate {
public:
    using CellDelegate::CellDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace fennick
