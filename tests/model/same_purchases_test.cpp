#include "model/merchant_likeness.h"
#include "model/receipt_store.h"
#include "model/same_purchases.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class SamePurchasesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<TemporaryHome>();
        store_ = std::make_unique<ReceiptStore>();
        duplicates_ = std::make_unique<SamePurchases>(store_.get());
    }
    void cleanup() {
        duplicates_.reset();
        store_.reset();
    }

    void merchantIsTheSameButForItsSpelling_data() {
        QTest::addColumn<QString>("other");
        QTest::addColumn<bool>("isSame");
        QTest::newRow("case") << u"MARIO'S CAFE"_s << true;
        QTest::newRow("accent") << u"Mario's Café"_s << true;
        QTest::newRow("apostrophe") << u"Marios Cafe"_s << true;
        QTest::newRow("misread") << u"Mario's Cate"_s << true;
        QTest::newRow("with its address") << u"Mario's Cafe, 12 High Street"_s << true;
        QTest::newRow("another") << u"Luigi's Cafe"_s << false;
        QTest::newRow("short") << u"Ma"_s << false;
        QTest::newRow("none") << QString() << false;
    }
    void merchantIsTheSameButForItsSpelling() {
        QFETCH(QString, other);
        QFETCH(bool, isSame);
        QCOMPARE(isSameMerchant(merchantKey(u"Mario's Cafe"_s), merchantKey(other)), isSame);
        QCOMPARE(isSameMerchant(merchantKey(other), merchantKey(u"Mario's Cafe"_s)), isSame);
        QVERIFY(!isSameMerchant(merchantKey(u"BP"_s), merchantKey(u"BQ"_s)));
    }

    void samePurchaseTwiceLeadsFromEachToTheOther() {
        const Receipt first = add(u"a"_s);
        QVERIFY(!duplicates_->otherOf(first.id));
        QSignalSpy changes(duplicates_.get(), &SamePurchases::changed);
        const Receipt second = add(u"b"_s);
        QCOMPARE(duplicates_->otherOf(first.id), second.id);
        QCOMPARE(duplicates_->otherOf(second.id), first.id);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(changes.first().first().value<QSet<QString>>(), (QSet<QString>{first.id, second.id}));
        const SamePurchases afterRestart(store_.get());
        QCOMPARE(afterRestart.otherOf(second.id), first.id);
    }

    void receiptsThatReturnTogetherAreAllCompared() {
        const Receipt first = add(u"a"_s);
        const Receipt second = add(u"b"_s);
        const Receipt third = add(u"c"_s);
        const RemovedReceipts removed = store_->beforeRemovalOfAll();
        store_->clearAll();
        QVERIFY(!duplicates_->otherOf(first.id));
        store_->putBack(removed);
        for (const Receipt &receipt : {first, second, third}) {
            QVERIFY(duplicates_->otherOf(receipt.id));
        }
    }

    void otherValuesAreNoDuplicates_data() {
        QTest::addColumn<Receipt>("other");
        const auto row = [](const char *what, auto change) {
            Receipt receipt = finishedReceipt(u"/w/other.pdf"_s);
            change(receipt);
            QTest::newRow(what) << receipt;
        };
        row("amount", [](Receipt &receipt) { receipt.amount = 23.51; });
        row("no amount", [](Receipt &receipt) { receipt.amount.reset(); });
        row("currency", [](Receipt &receipt) { receipt.currency = u"EUR"_s; });
        row("date", [](Receipt &receipt) { receipt.date = u"2024-05-02"_s; });
        row("no date", [](Receipt &receipt) { receipt.date.reset(); });
        row("merchant", [](Receipt &receipt) { receipt.location = u"Elsewhere"_s; });
        row("no merchant", [](Receipt &receipt) { receipt.location.reset(); });
        row("failed", [](Receipt &receipt) { receipt.status = ReceiptStatus::error; });
    }
    void otherValuesAreNoDuplicates() {
        QFETCH(Receipt, other);
        const Receipt first = add(u"a"_s);
        store_->add(other);
        QVERIFY(!duplicates_->otherOf(first.id));
        QVERIFY(!duplicates_->otherOf(other.id));
    }

    void correctedReceiptIsNoDuplicateAnyMore() {
        const Receipt first = add(u"a"_s);
        Receipt second = add(u"b"_s);
        second.amount = 9;
        store_->update(second);
        QVERIFY(!duplicates_->otherOf(first.id));
        QVERIFY(!duplicates_->otherOf(second.id));
        second.amount = first.amount;
        store_->update(second);
        QCOMPARE(duplicates_->otherOf(second.id), first.id);
    }

    void removedReceiptIsNobodysDuplicate() {
        const Receipt first = add(u"a"_s);
        const Receipt second = add(u"b"_s);
        const Receipt third = add(u"c"_s);
        QCOMPARE(duplicates_->otherOf(third.id), first.id);
        store_->remove({first.id});
        QVERIFY(!duplicates_->otherOf(first.id));
        QCOMPARE(duplicates_->otherOf(third.id), second.id);
        store_->remove({second.id});
        QVERIFY(!duplicates_->otherOf(third.id));
        add(u"d"_s);
        store_->clearAll();
        QVERIFY(!duplicates_->otherOf(third.id));
    }

    void manyMerchantsOfOneAmountAndDayAreComparedByTheirWholeNames() {
        for (int number = 0; number < 300; ++number) {
            Receipt receipt = finishedReceipt(u"/w/%1.pdf"_s.arg(number));
            receipt.location = u"Shop %1 %1 %1"_s.arg(number);
            store_->add(receipt);
        }
        const Receipt twin = finishedReceipt(u"/w/twin.pdf"_s);
        store_->add(twin);
        Receipt other = finishedReceipt(u"/w/other.pdf"_s);
        store_->add(other);
        QCOMPARE(duplicates_->otherOf(other.id), twin.id);
    }

private:
    Receipt add(const QString &name) {
        const Receipt receipt = finishedReceipt(u"/w/"_s + name + u".pdf"_s);
        store_->add(receipt);
        return receipt;
    }

    std::unique_ptr<TemporaryHome> home_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<SamePurchases> duplicates_;
};

int same_purchases_test(int argc, char **argv) {
    return runTest<QCoreApplication, SamePurchasesTest>(argc, argv);
}
#include "same_purchases_test.moc"
