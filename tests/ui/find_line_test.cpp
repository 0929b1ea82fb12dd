#include "main_window_under_test.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/test_program.h"
#include "ui/main_window/find_line.h"
#include "ui/main_window/receipts_table_model.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class FindLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        under_.renew();
        addThree();
    }
    void cleanup() { under_.close(); }

    void lineComesWithItsShortcutAndGoesWithEscape() {
        QCOMPARE(under_.action("find")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_F));
        QVERIFY(line()->isHidden());
        openByKey();
        QVERIFY(line()->isVisible());
        QCOMPARE(text()->accessibleName(), u"Find"_s);
        type(u"hotel"_s);
        QCOMPARE(shown(), QStringList{u"b.pdf"_s});
        QTest::keyClick(text(), Qt::Key_Escape);
        QVERIFY(line()->isHidden());
        QCOMPARE(shown().size(), 3);
        QVERIFY(under_.table()->hasFocus());
        openByKey();
        QVERIFY(text()->text().isEmpty());
        under_.table()->setFocus();
        QTest::keyClick(under_.table(), Qt::Key_Escape);
        QVERIFY(line()->isHidden());
    }

    void eachKeyNarrowsTheList() {
        openByKey();
        type(u"m"_s);
        QCOMPARE(shown().size(), 3); // each is an expense of "misc" or at Mario's
        type(u"ario"_s);
        QCOMPARE(shown(), (QStringList{u"c.pdf"_s, u"a.pdf"_s}));
        type(u" failed"_s);
        QCOMPARE(shown(), QStringList{u"c.pdf"_s});
        QCOMPARE(line()->findChild<QLabel *>(u"findCount"_s)->text(), u"1 of 3"_s);
        QTest::keyClick(text(), Qt::Key_A, Qt::ControlModifier);
        type(u">100"_s);
        QCOMPARE(shown(), QStringList{u"b.pdf"_s});
    }

    void duplicateNarrowsTheListAlsoWhenOneComes() {
        const Receipt first = finishedReceipt(u"/w/first.pdf"_s);
        under_.store->add(first);
        openByKey();
        type(u"duplicate"_s);
        QCOMPARE(shown(), QStringList());
        Receipt second = finishedReceipt(u"/w/second.pdf"_s);
        under_.store->add(second);
        QVERIFY(waitUntil([this] { return shown().size() == 2; }));
        second.amount = 9;
        under_.store->update(second);
        QVERIFY(waitUntil([this] { return shown().isEmpty(); }));
    }

    void receiptThatIsAskedForIsShownAlsoIfItWasNotFound() {
        openByKey();
        type(u"hotel"_s);
        const Receipt hidden =
            *std::find_if(under_.store->receipts().begin(), under_.store->receipts().end(),
                          [](const Receipt &receipt) { return receipt.fileName == u"a.pdf"; });
        under_.window->selectReceipt(hidden.id);
        QCOMPARE(under_.table()->selectedReceipt()->id, hidden.id);
        QCOMPARE(shown().size(), 3);
        QVERIFY(line()->isHidden());
    }

    void downLeadsToWhatWasFound() {
        openByKey();
        type(u"hotel"_s);
        QTest::keyClick(text(), Qt::Key_Down);
        QVERIFY(under_.table()->hasFocus());
        QCOMPARE(under_.table()->selectedReceipt()->fileName, u"b.pdf"_s);
    }

    void menuActsOnWhatIsShownOnly() {
        under_.table()->selectAll();
        openByKey();
        type(u"hotel"_s);
        QCOMPARE(under_.table()->selectedReceipts().size(), 1); // what has been found stays selected
        under_.action("removeFromList")->trigger();
        QCOMPARE(under_.store->receipts().size(), 2);
        QVERIFY(shown().isEmpty());
        QVERIFY(!under_.table()->selectedReceipt());
        QVERIFY(!under_.action("removeFromList")->isEnabled());
    }

    void keysOfTheTextAreNotThoseOfTheList() {
        under_.table()->selectRow(0);
        openByKey();
        type(u"x"_s);
        QTest::keyClick(text(), Qt::Key_Home);
        QTest::keyClick(text(), Qt::Key_Delete);
        QVERIFY(text()->text().isEmpty());
        QCOMPARE(under_.store->receipts().size(), 3);
    }

    void foundRowsFollowTheList() {
        const QAbstractItemModelTester tester(under_.table()->model());
        openByKey();
        type(u"hotel"_s);
        Receipt receipt = finishedReceipt(under_.addFile(u"d.pdf"_s));
        receipt.location = u"Hotel Post"_s;
        receipt.scannedAt = u"2099-01-01T00:00:01Z"_s; // the newest
        under_.store->add(receipt);
        QCOMPARE(shown(), (QStringList{u"d.pdf"_s, u"b.pdf"_s}));
        QCOMPARE(line()->findChild<QLabel *>(u"findCount"_s)->text(), u"2 of 4"_s);
        receipt.location = u"Inn"_s;
        under_.store->update(receipt);
        QCOMPARE(shown(), QStringList{u"b.pdf"_s});
        receipt.location = u"Hotel Post"_s;
        receipt.scannedAt = u"2024-01-01T00:00:01Z"_s; // now the oldest
        under_.store->update(receipt);
        QCOMPARE(shown(), (QStringList{u"b.pdf"_s, u"d.pdf"_s}));
        under_.store->remove({receipt.id});
        QCOMPARE(shown(), QStringList{u"b.pdf"_s});
        under_.store->clearAll();
        QVERIFY(shown().isEmpty());
        under_.store->add(receipt);
        QCOMPARE(shown(), QStringList{u"d.pdf"_s});
    }

    void foundRowsCanBeSorted() {
        openByKey();
        type(u"mario"_s);
        QHeaderView *const header = under_.table()->horizontalHeader();
        header->setSortIndicator(ReceiptsTableModel::amountColumn, Qt::AscendingOrder);
        QCOMPARE(shown(), (QStringList{u"a.pdf"_s, u"c.pdf"_s}));
        QTest::keyClick(text(), Qt::Key_Escape);
        QCOMPARE(shown(), (QStringList{u"a.pdf"_s, u"c.pdf"_s, u"b.pdf"_s}));
    }

private:
    // The newest is "c": 20 at Mario's, failed; "b": 300 in a hotel; "a": 10 at Mario's.
    void addThree() {
        const QList<std::tuple<QString, double, QString>> receipts{{u"a.pdf"_s, 10, u"Mario's"_s},
                                                                   {u"b.pdf"_s, 300, u"Hotel, misc"_s},
                                                                   {u"c.pdf"_s, 20, u"Mario's"_s}};
        for (const auto &[name, amount, location] : receipts) {
            Receipt receipt = finishedReceipt(under_.addFile(name));
            receipt.scannedAt = u"2025-01-01T00:00:0%1Z"_s.arg(under_.store->receipts().size());
            receipt.amount = amount;
            receipt.location = location;
            receipt.summary.clear();
            receipt.status = name == u"c.pdf" ? ReceiptStatus::error : ReceiptStatus::done;
            under_.store->add(receipt);
        }
    }

    void openByKey() const {
        QTest::keyClick(under_.window.get(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(waitUntil([this] { return text()->hasFocus(); }));
    }

    void type(const QString &typed) const { QTest::keyClicks(text(), typed); }

    QStringList shown() const {
        QStringList names;
        const QAbstractItemModel *const rows = under_.table()->model();
        for (int row = 0; row < rows->rowCount(); ++row) {
            names.append(rows->index(row, 0).data(ReceiptsTableModel::fileNameRole).toString());
        }
        return names;
    }

    FindLine *line() const { return under_.window->findChild<FindLine *>(); }
    QLineEdit *text() const { return under_.window->findChild<QLineEdit *>(u"findText"_s); }

    MainWindowUnderTest under_;
};

int find_line_test(int argc, char **argv) {
    return runTest<QApplication, FindLineTest>(argc, argv);
}
#include "find_line_test.moc"
