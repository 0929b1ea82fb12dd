#pragma once

#include "export/spending.h"

#include <QList>
#include <QTimer>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTableView;

namespace fennick {

class AppState;
class ReceiptStore;
class SpendingModel;

// What was spent, by month and category, in one currency at a time: of the list and, if the user wants, of
// the archives. Follows both while it exists. Borrows the store and AppState; owned by FennickApp; main
// thread.
class SummaryWindow : public QWidget {
    Q_OBJECT

public:
    SummaryWindow(const ReceiptStore *store, AppState *appState);

    // The table as a page that can be printed, in HTML.
    QString printedPage() const;

private:
    void layOut();
    void addShortcuts();
    void refresh();
    void showCurrency();
    void copyTable() const;
    void print();
    QStringList textsOfRow(int row) const;
    QStringList columnNames() const;
    QString heading() const;

    const ReceiptStore *store_;
    AppState *appState_;
    QComboBox *currency_;
    QCheckBox *archives_;
    QLabel *nothing_;
    QTableView *table_;
    SpendingModel *model_;
    QPushButton *copy_;
    QPushButton *print_;
    QTimer refresh_; // many receipts change at once
    QList<Spending> spendings_;
};

} // namespace fennick
