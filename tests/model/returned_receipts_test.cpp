#include "model/receipt_store.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

Receipt returningReceipt(const QString &name, const QString &scannedAt) {
    Receipt receipt = freshReceipt(u"/w/"_s + name);
    receipt.scannedAt = scannedAt;
    return receipt;
}

// Only their places order them.
void addOfOneSecond(ReceiptStore &store, const QStringList &names) {
    for (const QString &name : names) {
        store.add(returningReceipt(name, u"2025-03-04T17:05:09Z"_s));
    }
}

} // namespace

// Receipts that have left the list and are put back.
class ReturnedReceiptsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { home_ = std::make_unique<test::TemporaryHome>(); }

    void removedReceiptsReturnToTheirPlaces() {
        ReceiptStore store;
        addOfOneSecond(store, {u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
        const QList<Receipt> before = store.receipts();
        const QSet<QString> ids{before[1].id, before[2].id, before[4].id};
        const RemovedReceipts removed = store.beforeRemoval(ids);
        store.remove(ids);
        const Receipt newer = returningReceipt(u"newer"_s, u"2025-03-04T17:05:10Z"_s);
        store.add(newer);
        QSignalSpy changes(&store, &ReceiptStore::receiptsChanged);
        store.putBack(removed);
        QCOMPARE(store.receipts(), QList<Receipt>{newer} + before);
        QCOMPARE(changes.size(), 2); // neighbours in one
        QCOMPARE(store.receipts().last(), before.last());
        QCOMPARE(ReceiptStore().receipts(), store.receipts());
        QVERIFY(store.ignoredPaths().isEmpty());
        QVERIFY(ReceiptStore().ignoredPaths().isEmpty());
    }

    void wholeListReturnsInOneChange() {
        ReceiptStore store;
        addOfOneSecond(store, {u"a"_s, u"b"_s, u"c"_s});
        const QList<Receipt> before = store.receipts();
        const RemovedReceipts removed = store.beforeRemovalOfAll();
        store.clearAll();
        QSignalSpy changes(&store, &ReceiptStore::receiptsChanged);
        store.putBack(removed);
        QCOMPARE(store.receipts(), before);
        QCOMPARE(changes.size(), 1);
        store.putBack(removed); // listed already
        QCOMPARE(store.receipts(), before);
    }

    void pathThatWasIgnoredBeforeStaysIgnored() {
        ReceiptStore store;
        QVERIFY(store.ignore({u"/w/a.pdf"_s}));
        store.add(freshReceipt(u"/w/a.pdf"_s));
        store.add(freshReceipt(u"/w/b.pdf"_s));
        const RemovedReceipts removed = store.beforeRemovalOfAll();
        store.clearAll();
        store.putBack(removed);
        QCOMPARE(store.ignoredPaths(), QSet<QString>{u"/w/a.pdf"_s});
        store.stopIgnoring({u"/w/a.pdf"_s});
        QVERIFY(ReceiptStore().ignoredPaths().isEmpty());
    }

private:
    std::unique_ptr<test::TemporaryHome> home_;
};

int returned_receipts_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, ReturnedReceiptsTest>(argc, argv);
}
#include "returned_receipts_test.moc"
