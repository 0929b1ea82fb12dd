#pragma once

#include "model/receipt_store.h"

#include <QMenu>

namespace fennick {

// The menu of the tray icon: the number of receipts, and entries that open the windows or quit. Borrows the
// store; owned by the shell.
class MenuBarContent : public QMenu {
    Q_OBJECT

public:
    explicit MenuBarContent(const ReceiptStore *store);

    // Before which entries of the moment find their place.
    QAction *endOfReceipts() const { return endOfReceipts_; }

Q_SIGNALS:
    void showReceiptsRequested();
    void settingsRequested();
    void quitRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showCount();

    const ReceiptStore *store_;
    QAction *count_;
    QAction *endOfReceipts_;
    QAction *quit_;
};

} // namespace fennick
