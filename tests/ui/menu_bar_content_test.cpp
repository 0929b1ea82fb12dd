#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/tray/menu_bar_content.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

using namespace fennick;
using namespace fennick::test;

class MenuBarContentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void countHasNoSingular() {
        ReceiptStore store;
        const MenuBarContent menu(&store);
        QCOMPARE(count(menu), QStringLiteral("No receipts yet"));
        store.add(finishedReceipt(QStringLiteral("/w/0.pdf")));
        QCOMPARE(count(menu), QStringLiteral("1 receipts"));
        for (int index = 1; index < 12; ++index) {
            store.add(finishedReceipt(QStringLiteral("/w/%1.pdf").arg(index)));
        }
        QCOMPARE(count(menu), QStringLiteral("12 receipts"));
        store.clearAll();
        QCOMPARE(count(menu), QStringLiteral("No receipts yet"));
    }

    void elementsStandInTheirOrder() {
        const ReceiptStore store;
        const MenuBarContent menu(&store);
        QStringList texts;
        const auto actions = menu.actions();
        for (const QAction *const action : actions) {
            texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
        }
        QCOMPARE(texts, (QStringList{QStringLiteral("Show Receipts"), QStringLiteral("No receipts yet"),
                                     QStringLiteral("-"), QStringLiteral("Settings…"), QStringLiteral("-"),
                                     QStringLiteral("Quit Fennick")}));
        QCOMPARE(menu.findChild<QAction *>(QStringLiteral("menuQuit"))->shortcut(),
                 QKeySequence(Qt::CTRL | Qt::Key_Q));
    }

    void elementsAskForWhatTheySay() {
        const ReceiptStore store;
        MenuBarContent menu(&store);
        QSignalSpy show(&menu, &MenuBarContent::showReceiptsRequested);
        QSignalSpy settings(&menu, &MenuBarContent::settingsRequested);
        QSignalSpy quit(&menu, &MenuBarContent::quitRequested);
        for (const char *const name : {"showReceipts", "menuSettings", "menuQuit"}) {
            menu.findChild<QAction *>(QString::fromLatin1(name))->trigger();
        }
        QCOMPARE(show.size(), 1);
        QCOMPARE(settings.size(), 1);
        QCOMPARE(quit.size(), 1);
    }

    void controlQQuitsWhileTheMenuIsOpen() {
        const ReceiptStore store;
        MenuBarContent menu(&store);
        QSignalSpy quit(&menu, &MenuBarContent::quitRequested);
        menu.popup(QPoint(0, 0));
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        QTest::keyClick(&menu, Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(quit.size(), 0);
        QTest::keyClick(&menu, Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(quit.size(), 1);
        QVERIFY(!menu.isVisible());
    }

    void countIsACaption() {
        const ReceiptStore store;
        const MenuBarContent menu(&store);
        const auto *const entry = menu.findChild<QAction *>(QStringLiteral("count"));
        QVERIFY(entry->font().pointSizeF() < menu.font().pointSizeF());
    }

private:
    static QString count(const MenuBarContent &menu) {
        return menu.findChild<QAction *>(QStringLiteral("count"))->text();
    }

    TemporaryHome home_;
};

int menu_bar_content_test(int argc, char **argv) {
    return runTest<QApplication, MenuBarContentTest>(argc, argv);
}
#include "menu_bar_content_test.moc"
