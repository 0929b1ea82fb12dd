#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/tray/menu_bar_content.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class MenuBarContentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void countHasNoSingular() {
        ReceiptStore store;
        const MenuBarContent menu(&store);
        QCOMPARE(count(menu), u"No receipts yet"_s);
        store.add(finishedReceipt(u"/w/0.pdf"_s));
        QCOMPARE(count(menu), u"1 receipts"_s);
        for (int index = 1; index < 12; ++index) {
            store.add(finishedReceipt(u"/w/%1.pdf"_s.arg(index)));
        }
        QCOMPARE(count(menu), u"12 receipts"_s);
        store.clearAll();
        QCOMPARE(count(menu), u"No receipts yet"_s);
    }

    void elementsStandInTheirOrder() {
        const ReceiptStore store;
        const MenuBarContent menu(&store);
        QStringList texts;
        const auto actions = menu.actions();
        for (const QAction *const action : actions) {
            texts.append(action->isSeparator() ? u"-"_s : action->text());
        }
        QCOMPARE(texts, (QStringList{u"Show Receipts"_s, u"No receipts yet"_s, u"-"_s, u"Settings…"_s, u"-"_s,
                                     u"Quit Fennick"_s}));
        QCOMPARE(menu.findChild<QAction *>(u"menuQuit"_s)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
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
        const auto *const entry = menu.findChild<QAction *>(u"count"_s);
        QVERIFY(entry->font().pointSizeF() < menu.font().pointSizeF());
    }

private:
    static QString count(const MenuBarContent &menu) { return menu.findChild<QAction *>(u"count"_s)->text(); }

    TemporaryHome home_;
};

int menu_bar_content_test(int argc, char **argv) {
    return runTest<QApplication, MenuBarContentTest>(argc, argv);
}
#include "menu_bar_content_test.moc"
