#pragma once

#include <QCollator>
#include <QSortFilterProxyModel>

namespace fennick {

class ReceiptsTableModel;
struct Receipt;

// The table's rows in the order of a column, as a view only: the list and its ledgers keep theirs. Without a
// column (-1), newest first. What a receipt lacks comes last either way; equal rows stay newest first. Owned
// by the table; main thread.
class SortedReceipts : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit SortedReceipts(ReceiptsTableModel *receipts, QObject *parent = nullptr);

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    int compare(const Receipt &left, const Receipt &right, int column) const;

    const ReceiptsTableModel *receipts_;
    QCollator collator_; // as the user sorts words
};

} // namespace fennick
