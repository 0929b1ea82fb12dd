#include "support/conditions.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/receipts_table.h"
#include "ui/main_window/receipts_table_model.h"

#include <QApplication>
#include <QHeaderView>
#include <QSignalSpy>
#include <QToolButton>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Model = ReceiptsTableModel;

class ReceiptsOrderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<TemporaryHome>();
        store_ = std::make_unique<ReceiptStore>();
        table_ = std::make_unique<ReceiptsTable>(store_.get());
        table_->resize(900, 400);
        table_->show();
    }

    void clickOnAHeadSortsAsAViewOnly() {
        addForSorting();
        const QStringList newestFirst{u"/w/c"_s, u"/w/b"_s, u"/w/a"_s};
        QCOMPARE(shownPaths(), newestFirst);
        clickHead(Model::amountColumn);
        QCOMPARE(shownPaths(), (QStringList{u"/w/a"_s, u"/w/b"_s, u"/w/c"_s})); // what has none comes last
        clickHead(Model::amountColumn);
        QCOMPARE(shownPaths(), (QStringList{u"/w/b"_s, u"/w/a"_s, u"/w/c"_s}));
        clickHead(Model::amountColumn);
        QCOMPARE(shownPaths(), newestFirst);
        clickHead(Model::locationColumn);
        QCOMPARE(shownPaths(), (QStringList{u"/w/b"_s, u"/w/c"_s, u"/w/a"_s}));
        clickHead(Model::actionsColumn); // nothing to sort by
        QCOMPARE(shownPaths(), newestFirst);
        QCOMPARE(pathsOf(store_->receipts()), newestFirst); // all the while
    }

    void selectionStaysOnItsReceiptsWhenTheOrderChanges() {
        addForSorting();
        table_->selectRow(2);
        clickHead(Model::amountColumn);
        QCOMPARE(pathsOf(table_->selectedReceipts()), QStringList{u"/w/a"_s});
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/a"_s);
        QVERIFY(waitUntil([this] { return isRetryOffered(2) && !isRetryOffered(0); }));
        QSignalSpy retried(table_.get(), &ReceiptsTable::retryRequested);
        QTest::mouseClick(retryButton(2), Qt::LeftButton);
        QCOMPARE(retried.first().first().value<Receipt>().filePath, u"/w/c"_s);
    }

    void newReceiptFindsItsPlaceInTheOrder() {
        addForSorting();
        clickHead(Model::amountColumn);
        Receipt receipt = finishedReceipt(u"/w/d"_s);
        receipt.amount = 7;
        store_->add(receipt);
        QCOMPARE(shownPaths(), (QStringList{u"/w/a"_s, u"/w/d"_s, u"/w/b"_s, u"/w/c"_s}));
    }

    void orderIsNotRemembered() {
        addForSorting();
        clickHead(Model::amountColumn);
        const QByteArray state = table_->columnState();
        ReceiptsTable again(store_.get());
        again.restoreColumnState(state);
        QCOMPARE(again.model()->index(0, 0).data(Model::fileNameRole).toString(), u"c"_s);
        QVERIFY(again.horizontalHeader()->sectionsClickable());
    }

    void typedLettersLeadToPlaceOrSummary() {
        addForSorting();
        table_->selectRow(0);
        const int usual = QApplication::keyboardInputInterval();
        QApplication::setKeyboardInputInterval(patience);
        QTest::keyClicks(table_.get(), u"zoo"_s);
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/a"_s);
        endTyping();
        table_->keyboardSearch(u"bäck"_s);
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/c"_s);
        endTyping();
        QTest::keyClicks(table_.get(), u"taxi"_s); // of the summary
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/b"_s);
        QApplication::setKeyboardInputInterval(usual);
    }

    void homeAndEndLeadThroughTheList() {
        addForSorting();
        table_->selectRow(1);
        QTest::keyClick(table_.get(), Qt::Key_End);
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/a"_s);
        QTest::keyClick(table_.get(), Qt::Key_Home);
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/c"_s);
        QTest::keyClick(table_.get(), Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(table_->selectedReceipts().size(), 3);
    }

private:
    static QStringList pathsOf(const QList<Receipt> &receipts) {
        QStringList paths;
        for (const Receipt &receipt : receipts) {
            paths.append(receipt.filePath);
        }
        return paths;
    }

    // From the oldest to the newest: "a" is cheap, "b" dear, "c" has failed and has no amount.
    void addForSorting() {
        Receipt receipt = finishedReceipt(u"/w/a"_s);
        receipt.scannedAt = u"2025-01-01T00:00:01Z"_s;
        receipt.amount = 5;
        receipt.location = u"Zoo"_s;
        store_->add(receipt);
        receipt = finishedReceipt(u"/w/b"_s);
        receipt.scannedAt = u"2025-01-01T00:00:02Z"_s;
        receipt.amount = 10;
        receipt.location = u"Airport"_s;
        receipt.summary = u"Taxi"_s;
        store_->add(receipt);
        receipt = finishedReceipt(u"/w/c"_s);
        receipt.scannedAt = u"2025-01-01T00:00:03Z"_s;
        receipt.amount.reset();
        receipt.location = u"Bäckerei"_s;
        receipt.status = ReceiptStatus::error;
        store_->add(receipt);
    }

    // The next letter begins anew, however long those before took.
    void endTyping() const {
        QApplication::setKeyboardInputInterval(1);
        letTimePass(20);
        table_->keyboardSearch(QString());
        QApplication::setKeyboardInputInterval(patience);
    }

    void clickHead(Model::Column column) {
        QHeaderView *const header = table_->horizontalHeader();
        const QPoint middle(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                            header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
    }

    QStringList shownPaths() const {
        QStringList paths;
        for (int row = 0; row < table_->model()->rowCount(); ++row) {
            paths.append(u"/w/"_s + table_->model()->index(row, 0).data(Model::fileNameRole).toString());
        }
        return paths;
    }

    QToolButton *retryButton(int row) const {
        const QWidget *const buttons = table_->indexWidget(table_->model()->index(row, Model::actionsColumn));
        return buttons == nullptr ? nullptr : buttons->findChild<QToolButton *>(u"retry"_s);
    }

    bool isRetryOffered(int row) const {
        const QToolButton *const button = retryButton(row);
        return button != nullptr && button->isVisible();
    }

    std::unique_ptr<TemporaryHome> home_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<ReceiptsTable> table_;
};

int receipts_order_test(int argc, char **argv) {
    return runTest<QApplication, ReceiptsOrderTest>(argc, argv);
}
#include "receipts_order_test.moc"
