#include "extraction/on_device_engine.h"
#include "pipeline/evidence_search.h"
#include "pipeline/folder_threads.h"
#include "pipeline/last_error.h"
#include "pipeline/tasks.h"
#include "pipeline/watched_folder.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// With the real engine and samples whose text it need not recognise.
class EvidenceSearchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { makeSearch(QString::fromUtf8(FENNICK_BIN_DIR "/fennick-engine")); }
    void cleanup() {
        search_.reset();
        engine_.reset();
    }

    void valuesAreFoundOnThePage() {
        search_->searchFor(ticket(), 1);
        QVERIFY(!isAnythingClaimed());
        QVERIFY(waitUntil([this] { return isAnythingClaimed(); }));
        for (const ReceiptField field :
             {ReceiptField::date, ReceiptField::time, ReceiptField::amount, ReceiptField::location}) {
            QVERIFY(search_->places().contains(field));
            QVERIFY(!search_->isMissing(field));
        }
        QCOMPARE(search_->places().at(ReceiptField::amount).page, 0);
    }

    void valueThatIsNowhereIsMissing() {
        Receipt receipt = ticket();
        receipt.amount = 18.7;
        search_->searchFor(receipt, 1);
        QVERIFY(waitUntil([this] { return search_->isMissing(ReceiptField::amount); }));
        QVERIFY(!search_->places().contains(ReceiptField::amount));
        QVERIFY(search_->places().contains(ReceiptField::date));
        QVERIFY(!search_->isMissing(ReceiptField::category)); // the program's own word
    }

    void correctedValueIsLookedForAgain() {
        Receipt receipt = ticket();
        receipt.amount = 18.7;
        search_->searchFor(receipt, 1);
        QVERIFY(waitUntil([this] { return search_->isMissing(ReceiptField::amount); }));
        receipt.amount = 18.6;
        search_->searchFor(receipt, 1);
        QVERIFY(!isAnythingClaimed());
        QVERIFY(waitUntil([this] { return search_->places().contains(ReceiptField::amount); }));
    }

    void sameValuesAreLookedForOnce() {
        search_->searchFor(ticket(), 1);
        QVERIFY(waitUntil([this] { return isAnythingClaimed(); }));
        Receipt delivered = receipt_;
        delivered.addedToPhotos = true;
        delivered.filePath += u".renamed"_s;
        search_->searchFor(delivered, 1);
        QVERIFY(isAnythingClaimed());
    }

    void anotherReceiptTakesItsPlace() {
        for (int pass = 0; pass < 20; ++pass) {
            search_->searchFor(ticket(), 1);
        }
        Receipt other = sample(u"invoice.pdf"_s);
        other.date = u"2024-03-09"_s;
        search_->searchFor(other, 1);
        QVERIFY(waitUntil([this] { return search_->places().contains(ReceiptField::date); }));
        QVERIFY(!search_->places().contains(ReceiptField::time));
    }

    void nothingIsKeptWhenNobodyLooks() {
        search_->searchFor(ticket(), 1);
        QVERIFY(waitUntil([this] { return isAnythingClaimed(); }));
        search_->clear();
        QVERIFY(!isAnythingClaimed());
        search_->searchFor(ticket(), 1);
        search_->clear();
        letTimePass(300);
        QVERIFY(!isAnythingClaimed());
        search_->searchFor(ticket(), 1);
        QVERIFY(waitUntil([this] { return isAnythingClaimed(); }));
    }

    void nothingIsMissingOnPagesThatWereNotRead() {
        Receipt receipt = ticket();
        receipt.amount = 18.7;
        search_->searchFor(receipt, 2);
        QVERIFY(waitUntil([this] { return search_->places().contains(ReceiptField::date); }));
        QVERIFY(!search_->isMissing(ReceiptField::amount));
    }

    void nothingIsClaimedWithoutAnEngineOrAFile_data() {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("file");
        QTest::newRow("no engine") << u"/nowhere/fennick-engine"_s << u"ticket.pdf"_s;
        QTest::newRow("no file") << QString::fromUtf8(FENNICK_BIN_DIR "/fennick-engine") << u"missing.pdf"_s;
    }
    void nothingIsClaimedWithoutAnEngineOrAFile() {
        QFETCH(QString, program);
        QFETCH(QString, file);
        makeSearch(program);
        search_->searchFor(sample(file), 1);
        letTimePass(300);
        QVERIFY(!isAnythingClaimed());
        QVERIFY(!lastError_.text());
    }

    void scansHaveTheEngineAgain() {
        search_->searchFor(ticket(), 1);
        QVERIFY(waitUntil([this] { return engine_->isRunning(); }));
        search_->clear();
        QVERIFY(waitUntil([this] { return !engine_->isRunning(); })); // as nobody uses it
    }

private:
    void makeSearch(const QString &program) {
        search_.reset();
        engine_ = std::make_unique<OnDeviceEngine>(program, std::chrono::milliseconds(500));
        search_ = std::make_unique<EvidenceSearch>(&watchedFolder_, &folderThreads_, engine_.get(), &tasks_);
    }

    bool isAnythingClaimed() const {
        return !search_->places().empty() ||
               std::any_of(receiptFields.begin(), receiptFields.end(),
                           [this](ReceiptField field) { return search_->isMissing(field); });
    }

    static Receipt sample(const QString &file) {
        Receipt receipt = freshReceipt(QString::fromUtf8(FENNICK_SOURCE_DIR "/samples/receipts/") + file);
        receipt.status = ReceiptStatus::done;
        return receipt;
    }

    Receipt ticket() {
        receipt_ = sample(u"ticket.pdf"_s);
        receipt_.date = u"2024-05-05"_s;
        receipt_.time = u"09:10"_s;
        receipt_.amount = 18.6;
        receipt_.currency = u"EUR"_s;
        receipt_.location = u"Auberge du Marronnier"_s;
        receipt_.category = u"breakfast"_s;
        return receipt_;
    }

    LastError lastError_;
    Tasks tasks_{&lastError_};
    FolderThreads folderThreads_;
    WatchedFolder watchedFolder_;
    std::unique_ptr<OnDeviceEngine> engine_;
    std::unique_ptr<EvidenceSearch> search_;
    Receipt receipt_;
};

int evidence_search_test(int argc, char **argv) {
    return runTest<QCoreApplication, EvidenceSearchTest>(argc, argv);
}
#include "evidence_search_test.moc"
