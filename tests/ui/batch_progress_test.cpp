#include "support/conditions.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/tray/batch_progress.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class BatchProgressTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<TemporaryHome>();
        store_ = std::make_unique<ReceiptStore>();
        progress_ = std::make_unique<BatchProgress>(store_.get());
    }

    void countsWhatIsUnderWayAndWhatIsFinished() {
        QVERIFY(!progress_->isUnderWay());
        QList<Receipt> receipts = {add("a.pdf"), add("b.pdf"), add("c.pdf")};
        QCOMPARE(progress_->totalCount(), 3);
        QCOMPARE(progress_->finishedCount(), 0);
        finish(receipts[1], ReceiptStatus::done);
        finish(receipts[0], ReceiptStatus::error);
        QCOMPARE(progress_->finishedCount(), 2);
        QCOMPARE(progress_->totalCount(), 3);
        QVERIFY(progress_->isUnderWay());
        add("d.pdf");
        QCOMPARE(progress_->totalCount(), 4);
    }

    void batchEndsOnceNothingHasBeenUnderWayForAWhile() {
        QSignalSpy ended(progress_.get(), &BatchProgress::ended);
        Receipt first = add("a.pdf");
        finish(first, ReceiptStatus::done);
        Receipt second = add("b.pdf"); // before the while is over
        finish(second, ReceiptStatus::error);
        QVERIFY(ended.isEmpty());
        waitUntil([&] { return ended.size() == 1; });
        QCOMPARE(ended.size(), 1);
        QCOMPARE(ended.first(), (QVariantList{1, 1}));
        QCOMPARE(progress_->totalCount(), 0);
    }

    void scannedReceiptsAreKnownUntilTheEndWasReported() {
        QStringList known;
        connect(progress_.get(), &BatchProgress::ended, this, [&] { known = progress_->scannedReceipts(); });
        Receipt first = add("a.pdf");
        Receipt second = add("b.pdf");
        Receipt third = add("c.pdf");
        finish(second, ReceiptStatus::done);
        finish(third, ReceiptStatus::error);
        finish(first, ReceiptStatus::done);
        QVERIFY(waitUntil([&] { return !known.isEmpty(); }));
        QCOMPARE(known, (QStringList{second.id, first.id}));
        QVERIFY(progress_->scannedReceipts().isEmpty());
    }

    void changesAfterTheScanDoNotCountAgain() {
        Receipt receipt = add("a.pdf");
        finish(receipt, ReceiptStatus::done);
        receipt.addedToPhotos = true;
        store_->update(receipt);
        QCOMPARE(progress_->finishedCount(), 1);
    }

    void clearedReceiptsAreNoLongerUnderWay() {
        QSignalSpy ended(progress_.get(), &BatchProgress::ended);
        Receipt receipt = add("a.pdf");
        finish(receipt, ReceiptStatus::done);
        add("b.pdf");
        store_->clearAll();
        QVERIFY(!progress_->isUnderWay());
        waitUntil([&] { return ended.size() == 1; });
        QCOMPARE(ended.size(), 1);
        QCOMPARE(ended.first(), (QVariantList{1, 0}));
    }

    void retriedReceiptCountsOnce() {
        Receipt receipt = add("a.pdf");
        finish(receipt, ReceiptStatus::error);
        finish(receipt, ReceiptStatus::processing);
        QCOMPARE(progress_->totalCount(), 1);
        finish(receipt, ReceiptStatus::done);
        QSignalSpy ended(progress_.get(), &BatchProgress::ended);
        QVERIFY(waitUntil([&] { return ended.size() == 1; }));
        QCOMPARE(ended.first(), (QVariantList{1, 0}));
    }

    void batchDoesNotEndWhileThereIsMoreToCome() {
        QSignalSpy ended(progress_.get(), &BatchProgress::ended);
        Receipt receipt = add("a.pdf");
        progress_->setMoreToCome(true);
        finish(receipt, ReceiptStatus::error);
        letTimePass(2500);
        QVERIFY(ended.isEmpty());
        progress_->setMoreToCome(false);
        QVERIFY(waitUntil([&] { return ended.size() == 1; }));
    }

    void removedReceiptsAreNoLongerUnderWay() {
        const Receipt first = add("a.pdf");
        add("b.pdf");
        store_->remove({first.id});
        QCOMPARE(progress_->totalCount(), 1);
        QVERIFY(progress_->isUnderWay());
    }

private:
    Receipt add(const char *name) {
        Receipt receipt = freshReceipt(u"/w/"_s + QString::fromUtf8(name));
        store_->add(receipt);
        return receipt;
    }

    void finish(Receipt &receipt, ReceiptStatus status) {
        receipt.status = status;
        store_->update(receipt);
    }

    std::unique_ptr<TemporaryHome> home_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<BatchProgress> progress_;
};

int batch_progress_test(int argc, char **argv) {
    return runTest<QCoreApplication, BatchProgressTest>(argc, argv);
}
#include "batch_progress_test.moc"
