#pragma once

#include "model/receipt_store.h"
#include "model/searchable_receipt.h"
#include "text/currency_text.h"

#include <QAbstractTableModel>

#include <memory>
#include <vector>

namespace fennick {

class PossibleDuplicates;

// The store's receipts as the rows of a table, in the store's order. Passes changes on row by row, so that
// views redraw only what has changed. Owned by the view that shows it; main thread.
class ReceiptsTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column {
        statusColumn,
        dateColumn,
        amountColumn,
        locationColumn,
        categoryColumn,
        summaryColumn,
        photosColumn,
        actionsColumn,
        columns
    };
    enum Role { fileNameRole = Qt::UserRole, isProcessingRole };

    explicit ReceiptsTableModel(const ReceiptStore *store, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Lets searches know which receipts may be duplicates. Borrows it.
    void setDuplicates(const PossibleDuplicates *duplicates);

    // The receipt of a row, as it is now.
    const Receipt &receipt(int row) const { return store_->receipts().at(row); }

    // What a search looks at in a row. Made when it is first asked for and kept until the row changes or
    // forgetSearchables() is called.
    const SearchableReceipt &searchable(int row) const;
    void forgetSearchables() { searchables_.clear(); }

private:
    void refreshDuplicates(const QSet<QString> &ids);
    void beginChange(const ReceiptsChange &change);
    void endChange(const ReceiptsChange &change);
    void makeRoomForSearchables(qsizetype first, qsizetype count);
    void followWithSearchables(const ReceiptsChange &change);

    const ReceiptStore *store_;
    const PossibleDuplicates *duplicates_ = nullptr;
    mutable AmountFormatter amounts_{
        FractionDigits::ofCurrency}; // which keeps what it needs for each currency
    mutable std::vector<std::unique_ptr<const SearchableReceipt>> searchables_; // by row, or none at all
};

} // namespace fennick
