#pragma once

#include "model/receipt_store.h"
#include "settings/settings_store.h"

#include <QWidget>

class QLabel;
class QTableView;

namespace fennick {

class ReceiptsTableModel;

// The content of the main window: which folder is watched, whether a key is missing, and the table of all
// receipts. Borrows the stores; owned by the main window; main thread.
class HomeView : public QWidget {
    Q_OBJECT

public:
    HomeView(const ReceiptStore *store, const SettingsStore *settings, QWidget *parent = nullptr);

private:
    void layOut();
    void showSettings();

    const SettingsStore *settings_;
    ReceiptsTableModel *model_;
    QLabel *folderLabel_;
    QLabel *missingKeyLabel_;
    QTableView *table_;
};

} // namespace fennick
