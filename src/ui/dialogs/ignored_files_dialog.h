#pragma once

#include <QDialog>

class QPushButton;
class QSortFilterProxyModel;
class QStandardItemModel;
class QTableView;

namespace fennick {

class AppState;
class ReceiptStore;

// The files that are never read because they have left the list, with since when: those that are selected can
// be read again. Follows the ignored paths while it is open. Borrows the store and the controller; main
// thread.
class IgnoredFilesDialog : public QDialog {
    Q_OBJECT

public:
    IgnoredFilesDialog(const ReceiptStore *store, AppState *appState, QWidget *parent);

private:
    void layOut();
    void fill();
    void restore();
    void enable();

    const ReceiptStore *store_;
    AppState *appState_;
    QStandardItemModel *files_;
    QSortFilterProxyModel *sorted_;
    QTableView *table_;
    QPushButton *restore_;
};

} // namespace fennick
