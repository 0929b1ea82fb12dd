#pragma once

#include "model/receipt_store.h"

#include <QElapsedTimer>
#include <QPersistentModelIndex>
#include <QTableView>
#include <QTimer>

#include <functional>
#include <optional>

namespace fennick {

class PossibleDuplicates;

class FoundReceipts;
class ReceiptColumns;
class ReceiptQuery;
class ReceiptsTableModel;
class RowActions;
class SortedReceipts;

// The table of all receipts, or of those that were found. A click on a column's head sorts by it, a second
// one the other way round, a third shows the newest first again. All rows have the same height, and only
// visible rows have buttons, so that a long list costs no more than a short one. Borrows the store; owned by
// the home view; main thread.
class ReceiptsTable : public QTableView {
    Q_OBJECT

public:
    explicit ReceiptsTable(const ReceiptStore *store, QWidget *parent = nullptr);

    // Whether rows offer to add their receipt to Photos.
    void setPhotosExportOn(bool isOn);

    // The receipts of the selected rows, from top to bottom.
    [[nodiscard]] QList<Receipt> selectedReceipts() const;

    // Whether `applies` to the receipt of any selected row.
    [[nodiscard]] bool isAnySelected(const std::function<bool(const Receipt &)> &applies) const;

    // That of the current row, as long as any row is selected.
    [[nodiscard]] std::optional<Receipt> selectedReceipt() const;

    // Selects the row that many rows further down, as far as there are any; without a selection, the first on
    // the screen.
    void selectFurther(int rows);

    // Selects this receipt alone. Fails if no row shows it.
    [[nodiscard]] bool selectReceipt(const QString &id);

    // Lets searches know which receipts may be duplicates.
    void setDuplicates(const PossibleDuplicates *duplicates);

    // -1 if no row is selected.
    [[nodiscard]] int firstSelectedRow() const;

    // Selects this row alone, or the last one if there are fewer.
    void selectNearest(int row);

    // Shows only what matches. From prepareFind() to endFind() a query is answered at once.
    void prepareFind();
    void find(const ReceiptQuery &query);
    void endFind();

    // Selects the next row whose place or summary begins like what is typed, whichever cell is current.
    void keyboardSearch(const QString &typed) override;

    // The column widths that the user has set.
    QByteArray columnState();
    void restoreColumnState(const QByteArray &state);

Q_SIGNALS:
    // Another row is current, other rows are selected, or a receipt has changed.
    void selectedReceiptChanged();
    void openRequested(const Receipt &receipt);
    void revealRequested(const Receipt &receipt);
    void addToPhotosRequested(const Receipt &receipt);
    void retryRequested(const Receipt &receipt);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void setUpAppearance();
    void scheduleRowActions();
    void showRowActions();
    void sortBy(int column, Qt::SortOrder order);
    const Receipt &receipt(int row) const;
    QList<int> selectedRows() const;
    int currentRow() const;
    void selectOnly(int row);
    void selectFirstVisibleRow();
    RowActions *makeRowActions(const QModelIndex &place);

    ReceiptsTableModel *model_;
    SortedReceipts *sorted_;
    FoundReceipts *found_;
    QString typed_; // to search for with keyboardSearch()
    QElapsedTimer sinceTyped_;
    QList<QPersistentModelIndex> placesWithActions_;
    QTimer rowActionsUpdate_;           // gathers many changes into one look at the visible rows
    ReceiptColumns *columns_ = nullptr; // made once the head has its columns
    bool isPhotosExportOn_ = false;
};

} // namespace fennick
