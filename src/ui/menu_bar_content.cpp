#include "ui/menu_bar_content.h"

namespace fennick {

MenuBarContent::MenuBarContent(const ReceiptStore *store)
    : store_(store) {
    QAction *const showReceipts = addAction(tr("Show Receipts"));
    showReceipts->setObjectName(QStringLiteral("showReceipts"));
    connect(showReceipts, &QAction::triggered, this, &MenuBarContent::showReceiptsRequested);
    count_ = addAction(QString());
    count_->setObjectName(QStringLiteral("count"));
    count_->setEnabled(false);
    addSeparator();
    QAction *const settings = addAction(tr("Settings…"));
    settings->setObjectName(QStringLiteral("menuSettings"));
    connect(settings, &QAction::triggered, this, &MenuBarContent::settingsRequested);
    addSeparator();
    QAction *const quit = addAction(tr("Quit Fennick"));
    quit->setObjectName(QStringLiteral("menuQuit"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &MenuBarContent::quitRequested);
    connect(store, &ReceiptStore::receiptsChanged, this, &MenuBarContent::showCount);
    showCount();
}

// "1 receipts" is intended: English has no singular form here. Other languages have theirs.
void MenuBarContent::showCount() {
    const qsizetype count = store_->receipts().size();
    count_->setText(count == 0 ? tr("No receipts yet") : tr("%n receipts", nullptr, static_cast<int>(count)));
}

} // namespace fennick
