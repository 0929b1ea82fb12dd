#include "ui/main_window/sorted_receipts.h"

#include "ui/main_window/receipts_table_model.h"

namespace fennick {

namespace {

using SortColumn = ReceiptsTableModel::Column;

template <typename Value>
int order(const Value &left, const Value &right) {
    return left < right ? -1 : static_cast<int>(right < left);
}

bool lacks(const Receipt &receipt, int column) {
    switch (column) {
    case SortColumn::dateColumn:
        return !receipt.date;
    case SortColumn::amountColumn:
        return !receipt.amount;
    case SortColumn::locationColumn:
        return !receipt.location;
    case SortColumn::summaryColumn:
        return receipt.summary.isEmpty();
    default:
        return false;
    }
}

// What needs attention comes first.
int urgency(ReceiptStatus status) {
    switch (status) {
    case ReceiptStatus::error:
        return 0;
    case ReceiptStatus::processing:
        return 1;
    case ReceiptStatus::done:
        return 2;
    }
    Q_UNREACHABLE();
}

} // namespace

SortedReceipts::SortedReceipts(ReceiptsTableModel *receipts, QObject *parent)
    : QSortFilterProxyModel(parent)
    , receipts_(receipts) {
    collator_.setCaseSensitivity(Qt::CaseInsensitive);
    setSourceModel(receipts);
}

bool SortedReceipts::lessThan(const QModelIndex &left, const QModelIndex &right) const {
    const Receipt &first = receipts_->receipt(left.row());
    const Receipt &second = receipts_->receipt(right.row());
    const bool isFirstLacking = lacks(first, left.column());
    if (isFirstLacking != lacks(second, left.column())) {
        return isFirstLacking == (sortOrder() == Qt::DescendingOrder);
    }
    return compare(first, second, left.column()) < 0;
}

int SortedReceipts::compare(const Receipt &left, const Receipt &right, int column) const {
    const auto byWords = [this](const QString &one, const QString &other) {
        return collator_.compare(one, other);
    };
    switch (column) {
    case SortColumn::statusColumn:
        return order(urgency(left.status), urgency(right.status));
    case SortColumn::dateColumn: {
        const int byDate = order(left.date, right.date);
        return byDate == 0 ? order(left.time, right.time) : byDate;
    }
    case SortColumn::amountColumn:
        return order(left.amount, right.amount);
    case SortColumn::locationColumn:
        return byWords(left.location.value_or(QString()), right.location.value_or(QString()));
    case SortColumn::categoryColumn:
        return byWords(left.category, right.category);
    case SortColumn::summaryColumn:
        return byWords(left.summary, right.summary);
    case SortColumn::photosColumn:
        return order(left.addedToPhotos, right.addedToPhotos);
    default:
        return 0;
    }
}

} // namespace fennick
