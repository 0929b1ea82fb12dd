#include "model/receipt_json.h"
#include "model/receipt_store.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

namespace {

Receipt receiptTakenInAt(const char *name, const char *scannedAt) {
    Receipt receipt = freshReceipt(u"/w/"_s + QString::fromUtf8(name));
    receipt.scannedAt = QString::fromUtf8(scannedAt);
    return receipt;
}

QStringList names(const QList<Receipt> &receipts) {
    QStringList result;
    for (const Receipt &receipt : receipts) {
        result.append(receipt.fileName);
    }
    return result;
}

QStringList list(std::initializer_list<const char *> texts) {
    QStringList result;
    for (const char *const text : texts) {
        result.append(QString::fromUtf8(text));
    }
    return result;
}

} // namespace

class ReceiptStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ignoredPathsAreOnDiskAtOnceAndKnown() {
        ReceiptStore store;
        store.add(freshReceipt(u"/w/listed.pdf"_s));
        const auto before = store.knownPaths();
        QVERIFY(store.ignore({u"/w/a.pdf"_s, u"/w/b.pdf"_s}));
        QVERIFY(store.hasFilePath(u"/w/a.pdf"_s));
        QVERIFY(ReceiptStore().hasFilePath(u"/w/b.pdf"_s));
        QVERIFY(before(u"/w/listed.pdf"_s));
        QVERIFY(!before(u"/w/a.pdf"_s)); // it is what was known then
        QVERIFY(store.knownPaths()(u"/w/a.pdf"_s));
    }

    void nothingIsIgnoredThatCannotBeSaved() {
        ReceiptStore store;
        QDir().mkpath(home_->ignoredFile()); // no file can take its place
        QVERIFY(!store.ignore({u"/w/a.pdf"_s}));
        QVERIFY(!store.hasFilePath(u"/w/a.pdf"_s));
    }

    void init() { home_ = std::make_unique<test::TemporaryHome>(); }

    void firstStartMakesThePrivateFolderAndNoFile() {
        const ReceiptStore store;
        const QFileInfo folder(home_->path(u"data/Fennick"_s));
        QVERIFY(folder.isDir());
        QCOMPARE(folder.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther), 0);
        QVERIFY(QDir(folder.filePath()).isEmpty());
        QVERIFY(store.receipts().isEmpty());
        QVERIFY(!store.hasFilePath(u"/w/a.pdf"_s));
    }

    void everyChangeIsOnDiskAtOnce() {
        ReceiptStore store;
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        store.add(receipt);
        QCOMPARE(names(ReceiptStore().receipts()), list({"a.pdf"}));
        receipt.summary = u"changed"_s;
        store.update(receipt);
        QCOMPARE(ReceiptStore().receipts().first().summary, u"changed"_s);
    }

    void filesArePrivateToTheUser() {
        ReceiptStore store;
        store.add(freshReceipt(u"/w/a.pdf"_s));
        store.clearAll();
        for (const QString &path : {home_->receiptsFile(), home_->ignoredFile()}) {
            QCOMPARE(
                QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther), 0);
        }
    }

    void receiptOfTheSameSecondComesAfterTheOlderOne() {
        ReceiptStore store;
        store.add(receiptTakenInAt("first", "2025-03-04T17:05:09Z"));
        store.add(receiptTakenInAt("second", "2025-03-04T17:05:09Z"));
        store.add(receiptTakenInAt("later", "2025-03-04T17:05:10Z"));
        store.add(receiptTakenInAt("earlier", "2025-03-04T17:05:08Z"));
        QCOMPARE(names(store.receipts()), list({"later", "first", "second", "earlier"}));
    }

    void loadedListIsSortedStably() {
        writeFile(home_->receiptsFile(), encodeReceipts({receiptTakenInAt("b", "2025-01-01T00:00:01Z"),
                                                         receiptTakenInAt("new", "2025-01-01T00:00:02Z"),
                                                         receiptTakenInAt("c", "2025-01-01T00:00:01Z")}));
        QCOMPARE(names(ReceiptStore().receipts()), list({"new", "b", "c"}));
    }

    void updateReplacesTheRecordInItsPlace() {
        ReceiptStore store;
        Receipt older = receiptTakenInAt("older", "2025-01-01T00:00:01Z");
        store.add(older);
        store.add(receiptTakenInAt("newer", "2025-01-01T00:00:02Z"));
        older.fileName = u"renamed"_s;
        store.update(older);
        QCOMPARE(names(store.receipts()), list({"newer", "renamed"}));
    }

    void errorIsSetOnTheReceiptAsItIsNow() {
        ReceiptStore store;
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        store.add(receipt);
        receipt.summary = u"corrected"_s;
        store.update(receipt);
        store.setError(receipt.id, u"no answer"_s);
        receipt.status = ReceiptStatus::error;
        receipt.error = u"no answer"_s;
        QCOMPARE(store.receipts(), QList{receipt});
        QCOMPARE(ReceiptStore().receipts(), QList{receipt});
        QSignalSpy changes(&store, &ReceiptStore::receiptsChanged);
        store.setError(u"unknown"_s, u"no answer"_s);
        QVERIFY(changes.isEmpty());
    }

    void updateWithAnotherMomentMovesTheRow_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("scannedAt");
        // All rows against all moments, on, between and outside those in the list.
        for (int row = 0; row < 5; ++row) {
            for (int second = 0; second <= 6; ++second) {
                QTest::addRow("row %d to %d", row, second) << row << u"2025-01-01T00:00:0%1Z"_s.arg(second);
            }
        }
    }
    void updateWithAnotherMomentMovesTheRow() {
        QFETCH(int, row);
        QFETCH(QString, scannedAt);
        ReceiptStore store;
        for (const char *const moment : {"5", "4", "4", "4", "2"}) {
            store.add(
                receiptTakenInAt(moment, ("2025-01-01T00:00:0" + QByteArray(moment) + 'Z').constData()));
        }
        QList<Receipt> expected = store.receipts();
        expected[row].scannedAt = scannedAt;
        const Receipt changed = expected[row];
        std::stable_sort(expected.begin(), expected.end(), [](const Receipt &left, const Receipt &right) {
            return left.scannedAt > right.scannedAt;
        });
        QSignalSpy changes(&store, &ReceiptStore::receiptsChanged);
        store.update(changed);
        QCOMPARE(store.receipts(), expected);
        const auto change = changes.first().first().value<ReceiptsChange>();
        QCOMPARE(change.from, row);
        QCOMPARE(store.receipts().at(change.to).id, changed.id);
    }

    void updateOfAnUnknownReceiptWritesNothing() {
        ReceiptStore store;
        store.add(freshReceipt(u"/w/a.pdf"_s));
        QVERIFY(QFile::remove(home_->receiptsFile()));
        QSignalSpy changes(&store, &ReceiptStore::receiptsChanged);
        store.update(freshReceipt(u"/w/b.pdf"_s));
        QVERIFY(!QFileInfo::exists(home_->receiptsFile()));
        QVERIFY(changes.isEmpty());
        QCOMPARE(names(store.receipts()), list({"a.pdf"}));
    }

    void removedReceiptsAreIgnoredFromThenOn() {
        ReceiptStore store;
        QSet<QString> ids{u"unknown"_s};
        for (const char *const name : {"5", "4", "3", "2", "1"}) {
            const Receipt receipt =
                receiptTakenInAt(name, ("2025-01-01T00:00:0" + QByteArray(name) + 'Z').constData());
            store.add(receipt);
            if (name != QByteArray("3") && name != QByteArray("1")) {
                ids.insert(receipt.id);
            }
        }
        QSignalSpy changes(&store, &ReceiptStore::receiptsChanged);
        store.remove(ids);
        QCOMPARE(names(store.receipts()), list({"3", "1"}));
        QCOMPARE(changes.size(), 2); // rows that lie together go together
        QVERIFY(store.hasFilePath(u"/w/5"_s) && store.hasFilePath(u"/w/2"_s));
        const ReceiptStore next;
        QCOMPARE(names(next.receipts()), list({"3", "1"}));
        QVERIFY(next.hasFilePath(u"/w/5"_s) && next.hasFilePath(u"/w/4"_s) && next.hasFilePath(u"/w/2"_s));
        QVERIFY(!next.hasFilePath(u"/w/6"_s));
    }

    void removalOfUnknownReceiptsWritesNothing() {
        ReceiptStore store;
        store.add(freshReceipt(u"/w/a.pdf"_s));
        QVERIFY(QFile::remove(home_->receiptsFile()));
        store.remove({u"unknown"_s});
        QVERIFY(!QFileInfo::exists(home_->receiptsFile()));
        QVERIFY(!QFileInfo::exists(home_->ignoredFile()));
        QCOMPARE(names(store.receipts()), list({"a.pdf"}));
    }

    void filePathsAreComparedExactly() {
        ReceiptStore store;
        store.add(freshReceipt(u"/w/Caf\u00E9.pdf"_s));
        QVERIFY(store.hasFilePath(u"/w/Caf\u00E9.pdf"_s));
        QVERIFY(!store.hasFilePath(u"/w/caf\u00E9.pdf"_s));
        QVERIFY(!store.hasFilePath(u"/w/Cafe\u0301.pdf"_s));
    }

    void filePathFollowsARename() {
        ReceiptStore store;
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        store.add(receipt);
        store.add(freshReceipt(u"/w/a.pdf"_s)); // two records of one path
        receipt.filePath = u"/w/b.pdf"_s;
        store.update(receipt);
        QVERIFY(store.hasFilePath(u"/w/a.pdf"_s));
        QVERIFY(store.hasFilePath(u"/w/b.pdf"_s));
    }

    void clearedPathsStayKnownAlsoAfterARestart() {
        {
            ReceiptStore store;
            store.add(freshReceipt(u"/w/a.pdf"_s));
            store.add(freshReceipt(u"/w/b.pdf"_s));
            store.clearAll();
            QVERIFY(store.receipts().isEmpty());
            QVERIFY(store.hasFilePath(u"/w/a.pdf"_s));
        }
        QVERIFY(decodeReceipts(readFile(home_->receiptsFile()))->isEmpty());
        QCOMPARE(*decodePaths(readFile(home_->ignoredFile())), (QSet<QString>{u"/w/a.pdf"_s, u"/w/b.pdf"_s}));
        const ReceiptStore restarted;
        QVERIFY(restarted.receipts().isEmpty());
        QVERIFY(restarted.hasFilePath(u"/w/a.pdf"_s));
        QVERIFY(restarted.hasFilePath(u"/w/b.pdf"_s));
    }

    void ignoredPathsAccumulate() {
        ReceiptStore store;
        store.add(freshReceipt(u"/w/a.pdf"_s));
        store.clearAll();
        store.add(freshReceipt(u"/w/b.pdf"_s));
        store.clearAll();
        QVERIFY(ReceiptStore().hasFilePath(u"/w/a.pdf"_s));
    }

    void unknownStatusLoadsAsEmptyListAndIsReplacedByTheNextAdd() {
        writeFile(home_->receiptsFile(),
                  R"([{"id": "A", "fileName": "a", "filePath": "/a", "scannedAt": "s",)"
                  R"("status": "finished"}])");
        ReceiptStore store;
        QVERIFY(store.receipts().isEmpty());
        store.add(freshReceipt(u"/w/new.pdf"_s));
        QCOMPARE(names(*decodeReceipts(readFile(home_->receiptsFile()))), list({"new.pdf"}));
    }

    void handWrittenListLoads() {
        writeFile(
            home_->receiptsFile(),
            R"([{"scannedAt":"2025-01-01T00:00:01Z","filePath":"/w/a.pdf","fileName":"a.pdf","id":"A"}])");
        QVERIFY(ReceiptStore().hasFilePath(u"/w/a.pdf"_s));
    }

    void damagedIgnoredFileGivesAnEmptySet() {
        writeFile(home_->ignoredFile(), R"(["/w/a.pdf", 1])");
        QVERIFY(!ReceiptStore().hasFilePath(u"/w/a.pdf"_s));
    }

    void listThatWasNotUnderstoodIsKeptBesideTheNewOne() {
        const QByteArray damaged = R"([{"id": "A", "fileName": "only.pdf", )";
        writeFile(home_->receiptsFile(), damaged);
        ReceiptStore store;
        QCOMPARE(readFile(home_->receiptsFile()), damaged); // starting alone changes nothing
        store.add(freshReceipt(u"/w/a.pdf"_s));
        store.add(freshReceipt(u"/w/b.pdf"_s));
        const QStringList kept = damagedFiles(u"receipts.json"_s);
        QCOMPARE(kept.size(), 1);
        QCOMPARE(readFile(kept.first()), damaged);
        QCOMPARE(ReceiptStore().receipts().size(), 2);
    }

    void ignoredPathsThatWereNotUnderstoodAreKeptBesideTheNewOnes() {
        writeFile(home_->ignoredFile(), R"(["/w/old.pdf", )");
        ReceiptStore store;
        store.add(freshReceipt(u"/w/a.pdf"_s));
        QVERIFY(damagedFiles(u"ignored.json"_s).isEmpty());
        store.clearAll();
        const QStringList kept = damagedFiles(u"ignored.json"_s);
        QCOMPARE(kept.size(), 1);
        QCOMPARE(readFile(kept.first()), QByteArray(R"(["/w/old.pdf", )"));
        QVERIFY(ReceiptStore().hasFilePath(u"/w/a.pdf"_s));
    }

    void firstStartKeepsNothingBeside() {
        ReceiptStore store;
        store.add(freshReceipt(u"/w/a.pdf"_s));
        store.clearAll();
        QCOMPARE(QDir(home_->path(u"data/Fennick"_s)).entryList(QDir::Files),
                 list({"ignored.json", "receipts.json"}));
    }

    void failedSaveKeepsTheListInMemory() {
        ReceiptStore store;
        QVERIFY(QDir(home_->path(u"data/Fennick"_s)).removeRecursively());
        store.add(freshReceipt(u"/w/a.pdf"_s));
        QCOMPARE(names(store.receipts()), list({"a.pdf"}));
        QVERIFY(!QFileInfo::exists(home_->receiptsFile()));
    }

    void changeIsAnnouncedBeforeAndAfterItIsMade() {
        ReceiptStore store;
        qsizetype before = -1;
        qsizetype after = -1;
        connect(&store, &ReceiptStore::receiptsAboutToChange, this,
                [&] { before = store.receipts().size(); });
        connect(&store, &ReceiptStore::receiptsChanged, this, [&] { after = store.receipts().size(); });
        store.add(freshReceipt(u"/w/a.pdf"_s));
        QCOMPARE(before, 0);
        QCOMPARE(after, 1);
        store.clearAll();
        QCOMPARE(before, 1);
        QCOMPARE(after, 0);
    }

    void changeIsPublishedBeforeItIsSaved() {
        ReceiptStore store;
        QStringList savedThen;
        connect(&store, &ReceiptStore::receiptsChanged, this, [&] {
            const auto saved =
                decodeReceipts(QFileInfo::exists(home_->receiptsFile()) ? readFile(home_->receiptsFile())
                                                                        : QByteArray("[]"));
            savedThen.append(saved ? names(*saved).join(u',') : u"damaged"_s);
        });
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        store.add(receipt);
        receipt.fileName = u"b.pdf"_s;
        store.update(receipt);
        store.clearAll();
        QCOMPARE(savedThen, list({"", "a.pdf", "b.pdf"}));
        QVERIFY(decodeReceipts(readFile(home_->receiptsFile()))->isEmpty());
    }

private:
    QStringList damagedFiles(const QString &name) const {
        const QDir folder(home_->path(u"data/Fennick"_s));
        QStringList paths;
        for (const QString &each : folder.entryList({name + u".damaged-*"_s}, QDir::Files)) {
            paths.append(folder.filePath(each));
        }
        return paths;
    }

    std::unique_ptr<test::TemporaryHome> home_;
};

int receipt_store_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, ReceiptStoreTest>(argc, argv);
}
#include "receipt_store_test.moc"
