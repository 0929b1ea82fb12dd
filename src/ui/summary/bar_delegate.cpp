#include "ui/summary/bar_delegate.h"

#include "ui/summary/spending_model.h"

#include <QPainter>

namespace fennick {

namespace {

constexpr int barMargin = 5;
constexpr int widthOfABar = 240;

} // namespace

QSize BarDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    return QSize(widthOfABar, QStyledItemDelegate::sizeHint(option, index).height());
}

// Mirrored where text runs from right to left, so that bars begin beside their month.
void BarDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                        const QModelIndex &index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const auto *const model = qobject_cast<const SpendingModel *>(index.model());
    const QRect place = option.rect.adjusted(barMargin, barMargin, -barMargin, -barMargin);
    double start = 0;
    for (const SpendingModel::Segment &segment : model->segments(index.row())) {
        const QRect bar(place.left() + qRound(start * place.width()), place.top(),
                        qRound((start + segment.share) * place.width()) - qRound(start * place.width()),
                        place.height());
        painter->fillRect(QStyle::visualRect(option.direction, place, bar), segment.colour);
        start += segment.share;
    }
}

} // namespace fennick
