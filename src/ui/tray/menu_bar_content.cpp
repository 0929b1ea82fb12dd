#include "ui/tray/menu_bar_content.h"

#include "ui/widgets/text_style.h"

#include <QKeyEvent>

namespace fennick {

using namespace Qt::StringLiterals;

MenuBarContent::MenuBarContent(const ReceiptStore *store)
    : store_(store) {
    QAction *const showReceipts = addAction(tr("Show Receipts"));
    showReceipts->setObjectName(u"showReceipts"_s);
    connect(showReceipts, &QAction::triggered, this, &MenuBarContent::showReceiptsRequested);
    count_ = addAction(QString());
    count_->setObjectName(u"count"_s);
    count_->setEnabled(false);
    count_->setFont(styledFont(font(), TextStyle::caption));
    endOfReceipts_ = addSeparator();
    QAction *const settings = addAction(tr("Settings…"));
    settings->setObjectName(u"menuSettings"_s);
    connect(settings, &QAction::triggered, this, &MenuBarContent::settingsRequested);
    addSeparator();
    quit_ = addAction(tr("Quit Fennick"));
    quit_->setObjectName(u"menuQuit"_s);
    quit_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit_, &QAction::triggered, this, &MenuBarContent::quitRequested);
    connect(store, &ReceiptStore::receiptsChanged, this, &MenuBarContent::showCount);
    showCount();
}

// Qt does not trigger the shortcuts of a menu's entries while the menu is open.
void MenuBarContent::keyPressEvent(QKeyEvent *event) {
    if (quit_->shortcut().matches(QKeySequence(event->keyCombination())) != QKeySequence::ExactMatch) {
        QMenu::keyPressEvent(event);
        return;
    }
    close();
    quit_->trigger();
}

// "1 receipts" is intended: English has no singular form here. Other languages have theirs.
void MenuBarContent::showCount() {
    const qsizetype count = store_->receipts().size();
    count_->setText(count == 0 ? tr("No receipts yet") : tr("%n receipts", nullptr, static_cast<int>(count)));
}

} // namespace fennick
