#pragma once

#include "model/receipt.h"
#include "ui/main_window/main_actions.h"

#include <QList>
#include <QObject>

namespace fennick {

class AppState;
class ReceiptStore;
class ReceiptsTable;
class SettingsStore;

// What can be done with the selected receipts: carries out the actions for them and enables each while there
// is a receipt that it applies to. Owned by the main window, which also owns everything it borrows but the
// stores and the controller; main thread.
class ReceiptCommands : public QObject {
    Q_OBJECT

public:
    ReceiptCommands(MainActions *actions, ReceiptsTable *table, ReceiptStore *store, SettingsStore *settings,
                    AppState *appState, QWidget *window);

private:
    void connectSelection();
    void connectRows();
    void connectRetries();
    void enable();
    void enableRetries();
    bool canAddToPhotos(const Receipt &receipt) const;

    void open(const QList<Receipt> &receipts);
    void addToPhotos(const QList<Receipt> &receipts);
    void retry(const QList<Receipt> &receipts);
    void readAgain(const QList<Receipt> &receipts);
    void remove(const QList<Receipt> &receipts);

    MainActions *actions_;
    ReceiptsTable *table_;
    ReceiptStore *store_;
    SettingsStore *settings_;
    AppState *appState_;
    QWidget *window_;
};

} // namespace fennick
