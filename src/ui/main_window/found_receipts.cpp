#include "ui/main_window/found_receipts.h"

#include "ui/main_window/receipts_table_model.h"

namespace fennick {

FoundReceipts::FoundReceipts(const ReceiptsTableModel *receipts, QAbstractProxyModel *ordered,
                             QObject *parent)
    : QSortFilterProxyModel(parent)
    , receipts_(receipts)
    , ordered_(ordered) {
    setSourceModel(ordered);
}

// Reports one new layout. invalidateFilter() would report each run of rows that comes or goes, and views
// take a time for each of them that grows with the list.
void FoundReceipts::setQuery(const ReceiptQuery &query) {
    query_ = query;
    invalidate();
}

bool FoundReceipts::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const {
    if (query_.isEmpty()) {
        return true;
    }
    const int listed = ordered_->mapToSource(ordered_->index(row, 0)).row();
    return query_.matches(receipts_->searchable(listed));
}

} // namespace fennick
