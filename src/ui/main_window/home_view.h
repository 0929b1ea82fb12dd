#pragma once

#include "model/receipt_store.h"
#include "settings/settings_store.h"

#include <QWidget>

class QStackedWidget;

namespace fennick {

class CaptionLabel;
class ElidedLabel;
class FindLine;
class ReceiptsTable;

// The content of the main window: the watched folder, a warning if the API key is missing, and the table of
// receipts or, while there are none, what to do next. Borrows the stores; owned by the main window; main
// thread.
class HomeView : public QWidget {
    Q_OBJECT

public:
    HomeView(const ReceiptStore *store, const SettingsStore *settings, QWidget *parent = nullptr);

    ReceiptsTable *table() const { return table_; }

    // Opens the line in which the user types what to find.
    void find();

    // Selects this receipt in the list, which then shows all receipts if it did not show this one.
    void selectReceipt(const QString &id);

    // Whether the watched folder is missing.
    void showFolderMissing(bool isMissing);

Q_SIGNALS:
    void chooseFolderRequested();

private:
    void layOut();
    void connectFindLine();
    void showFound();
    QWidget *makeHeader();
    void showSettings();
    void showList();

    const ReceiptStore *store_;
    const SettingsStore *settings_;
    ElidedLabel *folder_;
    CaptionLabel *photosBadge_;
    CaptionLabel *missingKey_;
    FindLine *findLine_;
    ReceiptsTable *table_;
    QStackedWidget *list_;
};

} // namespace fennick
