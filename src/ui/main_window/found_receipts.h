#pragma once

#include "model/receipt_query.h"

#include <QSortFilterProxyModel>

namespace fennick {

class ReceiptsTableModel;

// The rows that match what the user looks for; all of them while that is nothing. Owned by the table; main
// thread.
class FoundReceipts : public QSortFilterProxyModel {
    Q_OBJECT

public:
    // `ordered` has the rows of `receipts` in the order in which they are shown.
    FoundReceipts(const ReceiptsTableModel *receipts, QAbstractProxyModel *ordered,
                  QObject *parent = nullptr);

    void setQuery(const ReceiptQuery &query);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    const ReceiptsTableModel *receipts_;
    const QAbstractProxyModel *ordered_;
    ReceiptQuery query_;
};

} // namespace fennick
