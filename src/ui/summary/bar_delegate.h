#pragma once

#include <QStyledItemDelegate>

namespace fennick {

// Paints the bars of a SpendingModel. Owned by the view; main thread.
class BarDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

} // namespace fennick
