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
using test::readFile;
using test::writeFile;

namespace {

Receipt receiptTakenInAt(const char *name, const char *scannedAt) {
    Receipt receipt = freshReceipt(QStringLiteral("/w/") + QString::fromUtf8(name));
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
    void init() { home_ = std::make_unique<test::TemporaryHome>(); }

    void firstStartMakesThePrivateFolderAndNoFile() {
        const ReceiptStore store;
        const QFileInfo folder(home_->path(QStringLiteral("data/Fennick")));
        QVERIFY(folder.isDir());
        QCOMPARE(folder.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther), 0);
        QVERIFY(QDir(folder.filePath()).isEmpty());
        QVERIFY(store.receipts().isEmpty());
        QVERIFY(!store.hasFilePath(QStringLiteral("/w/a.pdf")));
    }

    void everyChangeIsOnDiskAtOnce() {
        ReceiptStore store;
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        store.add(receipt);
        QCOMPARE(names(ReceiptStore().receipts()), list({"a.pdf"}));
        receipt.summary = QStringLiteral("changed");
        store.update(receipt);
        QCOMPARE(ReceiptStore().receipts().first().summary, QStringLiteral("changed"));
    }

    void filesArePrivateToTheUser() {
        ReceiptStore store;
        store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
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
        older.fileName = QStringLiteral("renamed");
        store.update(older);
        QCOMPARE(names(store.receipts()), list({"newer", "renamed"}));
    }

    void errorIsSetOnTheReceiptAsItIsNow() {
        ReceiptStore store;
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        store.add(receipt);
        receipt.summary = QStringLiteral("corrected");
        store.update(receipt);
        store.setError(receipt.id, QStringLiteral("no answer"));
        receipt.status = ReceiptStatus::error;
        receipt.error = QStringLiteral("no answer");
        QCOMPARE(store.receipts(), QList{receipt});
        QCOMPARE(ReceiptStore().receipts(), QList{receipt});
        QSignalSpy changes(&store, &ReceiptStore::receiptsChanged);
        store.setError(QStringLiteral("unknown"), QStringLiteral("no answer"));
        QVERIFY(changes.isEmpty());
    }

    void updateWithAnotherMomentMovesTheRow_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("scannedAt");
        // All rows against all moments, on, between and outside those in the list.
        for (int row = 0; row < 5; ++row) {
            for (int second = 0; second <= 6; ++second) {
                QTest::addRow("row %d to %d", row, second)
                    << row << QStringLiteral("2025-01-01T00:00:0%1Z").arg(second);
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
        store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
        QVERIFY(QFile::remove(home_->receiptsFile()));
        QSignalSpy changes(&store, &ReceiptStore::receiptsChanged);
        store.update(freshReceipt(QStringLiteral("/w/b.pdf")));
        QVERIFY(!QFileInfo::exists(home_->receiptsFile()));
        QVERIFY(changes.isEmpty());
        QCOMPARE(names(store.receipts()), list({"a.pdf"}));
    }

    void filePathsAreComparedExactly() {
        ReceiptStore store;
        store.add(freshReceipt(QStringLiteral("/w/Caf\u00E9.pdf")));
        QVERIFY(store.hasFilePath(QStringLiteral("/w/Caf\u00E9.pdf")));
        QVERIFY(!store.hasFilePath(QStringLiteral("/w/caf\u00E9.pdf")));
        QVERIFY(!store.hasFilePath(QStringLiteral("/w/Cafe\u0301.pdf")));
    }

    void filePathFollowsARename() {
        ReceiptStore store;
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        store.add(receipt);
        store.add(freshReceipt(QStringLiteral("/w/a.pdf"))); // two records of one path
        receipt.filePath = QStringLiteral("/w/b.pdf");
        store.update(receipt);
        QVERIFY(store.hasFilePath(QStringLiteral("/w/a.pdf")));
        QVERIFY(store.hasFilePath(QStringLiteral("/w/b.pdf")));
    }

    void clearedPathsStayKnownAlsoAfterARestart() {
        {
            ReceiptStore store;
            store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
            store.add(freshReceipt(QStringLiteral("/w/b.pdf")));
            store.clearAll();
            QVERIFY(store.receipts().isEmpty());
            QVERIFY(store.hasFilePath(QStringLiteral("/w/a.pdf")));
        }
        QVERIFY(decodeReceipts(readFile(home_->receiptsFile()))->isEmpty());
        QCOMPARE(*decodePaths(readFile(home_->ignoredFile())),
                 (QSet<QString>{QStringLiteral("/w/a.pdf"), QStringLiteral("/w/b.pdf")}));
        const ReceiptStore restarted;
        QVERIFY(restarted.receipts().isEmpty());
        QVERIFY(restarted.hasFilePath(QStringLiteral("/w/a.pdf")));
        QVERIFY(restarted.hasFilePath(QStringLiteral("/w/b.pdf")));
    }

    void ignoredPathsAccumulate() {
        ReceiptStore store;
        store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
        store.clearAll();
        store.add(freshReceipt(QStringLiteral("/w/b.pdf")));
        store.clearAll();
        QVERIFY(ReceiptStore().hasFilePath(QStringLiteral("/w/a.pdf")));
    }

    void unknownStatusLoadsAsEmptyListAndIsReplacedByTheNextAdd() {
        writeFile(home_->receiptsFile(),
                  R"([{"id": "A", "fileName": "a", "filePath": "/a", "scannedAt": "s",)"
                  R"("status": "finished"}])");
        ReceiptStore store;
        QVERIFY(store.receipts().isEmpty());
        store.add(freshReceipt(QStringLiteral("/w/new.pdf")));
        QCOMPARE(names(*decodeReceipts(readFile(home_->receiptsFile()))), list({"new.pdf"}));
    }

    void handWrittenListLoads() {
        writeFile(
            home_->receiptsFile(),
            R"([{"scannedAt":"2025-01-01T00:00:01Z","filePath":"/w/a.pdf","fileName":"a.pdf","id":"A"}])");
        QVERIFY(ReceiptStore().hasFilePath(QStringLiteral("/w/a.pdf")));
    }

    void damagedIgnoredFileGivesAnEmptySet() {
        writeFile(home_->ignoredFile(), R"(["/w/a.pdf", 1])");
        QVERIFY(!ReceiptStore().hasFilePath(QStringLiteral("/w/a.pdf")));
    }

    void listThatWasNotUnderstoodIsKeptBesideTheNewOne() {
        const QByteArray damaged = R"([{"id": "A", "fileName": "only.pdf", )";
        writeFile(home_->receiptsFile(), damaged);
        ReceiptStore store;
        QCOMPARE(readFile(home_->receiptsFile()), damaged); // starting alone changes nothing
        store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
        store.add(freshReceipt(QStringLiteral("/w/b.pdf")));
        const QStringList kept = damagedFiles(QStringLiteral("receipts.json"));
        QCOMPARE(kept.size(), 1);
        QCOMPARE(readFile(kept.first()), damaged);
        QCOMPARE(ReceiptStore().receipts().size(), 2);
    }

    void ignoredPathsThatWereNotUnderstoodAreKeptBesideTheNewOnes() {
        writeFile(home_->ignoredFile(), R"(["/w/old.pdf", )");
        ReceiptStore store;
        store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
        QVERIFY(damagedFiles(QStringLiteral("ignored.json")).isEmpty());
        store.clearAll();
        const QStringList kept = damagedFiles(QStringLiteral("ignored.json"));
        QCOMPARE(kept.size(), 1);
        QCOMPARE(readFile(kept.first()), QByteArray(R"(["/w/old.pdf", )"));
        QVERIFY(ReceiptStore().hasFilePath(QStringLiteral("/w/a.pdf")));
    }

    void firstStartKeepsNothingBeside() {
        ReceiptStore store;
        store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
        store.clearAll();
        QCOMPARE(QDir(home_->path(QStringLiteral("data/Fennick"))).entryList(QDir::Files),
                 list({"ignored.json", "receipts.json"}));
    }

    void failedSaveKeepsTheListInMemory() {
        ReceiptStore store;
        QVERIFY(QDir(home_->path(QStringLiteral("data/Fennick"))).removeRecursively());
        store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
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
        store.add(freshReceipt(QStringLiteral("/w/a.pdf")));
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
            savedThen.append(saved ? names(*saved).join(u',') : QStringLiteral("damaged"));
        });
        Receipt receipt = freshReceipt(QStringLiteral("/w/a.pdf"));
        store.add(receipt);
        receipt.fileName = QStringLiteral("b.pdf");
        store.update(receipt);
        store.clearAll();
        QCOMPARE(savedThen, list({"", "a.pdf", "b.pdf"}));
        QVERIFY(decodeReceipts(readFile(home_->receiptsFile()))->isEmpty());
    }

private:
    QStringList damagedFiles(const QString &name) const {
        const QDir folder(home_->path(QStringLiteral("data/Fennick")));
        QStringList paths;
        for (const QString &each : folder.entryList({name + QStringLiteral(".damaged-*")}, QDir::Files)) {
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
