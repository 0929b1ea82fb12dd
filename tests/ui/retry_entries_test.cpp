#include "main_window_under_test.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/test_program.h"
#include "ui/tray/menu_bar_content.h"
#include "ui/tray/retry_entries.h"

#include <QApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class RetryEntriesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { under_.renew(); }
    void cleanup() { under_.close(); }

    void menuShowsProgressAndAWayToStopWhileThereAreRetries() {
        MenuBarContent menu(under_.store.get());
        const RetryEntries entries(under_.appState->retryAll(), &menu, menu.endOfReceipts());
        const QStringList usual = textsOf(menu);
        for (int number = 0; number < 6; ++number) {
            Receipt failed = finishedReceipt(under_.addFile(u"%1.pdf"_s.arg(number)));
            failed.status = ReceiptStatus::error;
            under_.store->add(failed);
        }
        under_.appState->retryAll()->addAllFailed();
        QCOMPARE(textsOf(menu),
                 (QStringList{u"Show Receipts"_s, u"6 receipts"_s, u"Retrying 1 of 6"_s, u"Stop Retrying"_s,
                              u"-"_s, u"Settings…"_s, u"-"_s, u"Quit Fennick"_s}));
        QVERIFY(!menu.actions().at(2)->isEnabled());
        menu.actions().at(3)->trigger();
        QVERIFY(waitUntil([this] { return !under_.appState->retryAll()->isUnderWay(); }));
        QCOMPARE(textsOf(menu).size(), usual.size());
        const auto wasTried = [](const Receipt &receipt) {
            return receipt.error.has_value();
        };
        QCOMPARE(std::ranges::count_if(under_.store->receipts(), wasTried), 4);
    }

private:
    static QStringList textsOf(const QMenu &menu) {
        QStringList texts;
        const auto actions = menu.actions();
        for (const QAction *const action : actions) {
            texts.append(action->isSeparator() ? u"-"_s : action->text());
        }
        return texts;
    }

    MainWindowUnderTest under_;
};

int retry_entries_test(int argc, char **argv) {
    return runTest<QApplication, RetryEntriesTest>(argc, argv);
}
#include "retry_entries_test.moc"
