#include "pipeline/app_state.h"
#include "pipeline/archive_journal.h"
#include "pipeline_under_test.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QFuture>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Format = ExportService::Format;

namespace {

const QString builtName = u"2024-05-01 Lunch - Mario's Cafe $23.50.pdf"_s;
const QString interrupted = u"The scan was interrupted. Retry to scan this receipt again."_s;

} // namespace

// What the program makes, at its start, of what a killed run has left.
class RecoveryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        settings_ = std::make_unique<SettingsStore>();
        folder_ = settings_->watchFolderPath().value();
        store_ = std::make_unique<ReceiptStore>();
        appState_ = std::make_unique<AppState>(store_.get(), settings_.get());
    }
    void cleanup() {
        appState_.reset();
        store_.reset();
        settings_.reset();
        pipeline_.reset();
    }

    void interruptedScanIsAnErrorThatCanBeRetried() {
        Receipt receipt = freshReceipt(file("scan.pdf"));
        receipt.summary = u"From an earlier scan"_s;
        store_->add(receipt);
        recover();
        QCOMPARE(only().status, ReceiptStatus::error);
        QCOMPARE(only().error, interrupted);
        QCOMPARE(only().summary, receipt.summary);
        QCOMPARE(ReceiptStore().receipts().first().error, interrupted); // on disk as well
        appState_->retry(only());
        waitUntil([&] { return only().status == ReceiptStatus::done; });
        QCOMPARE(only().status, ReceiptStatus::done);
    }

    void finishedAndFailedScansStayAsTheyAre() {
        Receipt failed = freshReceipt(file("failed.pdf"));
        failed.status = ReceiptStatus::error;
        failed.error = u"Gemini API error: 500"_s;
        store_->add(failed);
        store_->add(finishedReceipt(file("done.pdf")));
        const QList<Receipt> before = store_->receipts();
        recover();
        QCOMPARE(store_->receipts(), before);
    }

    void renamedFileIsAdopted() {
        store_->add(finishedReceipt(folder_ + u"/scan.pdf"_s));
        const QString renamed = file(builtName);
        recover();
        QCOMPARE(only().filePath, renamed);
        QCOMPARE(only().fileName, builtName);
        QCOMPARE(only().status, ReceiptStatus::done);
        QVERIFY(ReceiptStore().hasFilePath(renamed));
    }

    void renamedFileIsAdoptedUnderItsNumber() {
        store_->add(finishedReceipt(file(builtName)));
        store_->add(finishedReceipt(folder_ + u"/scan.pdf"_s));
        const QString renamed = file(u"2024-05-01 Lunch - Mario's Cafe $23.50 (2).pdf"_s);
        recover();
        QCOMPARE(store_->receipts().last().filePath, renamed);
    }

    void fileThatIsListedOrIgnoredIsNotAdopted_data() {
        QTest::addColumn<bool>("isIgnored");
        QTest::newRow("listed") << false;
        QTest::newRow("ignored") << true;
    }
    void fileThatIsListedOrIgnoredIsNotAdopted() {
        QFETCH(bool, isIgnored);
        store_->add(finishedReceipt(file(builtName)));
        if (isIgnored) {
            store_->clearAll();
        }
        const QString missing = folder_ + u"/scan.pdf"_s;
        store_->add(finishedReceipt(missing));
        recover();
        QCOMPARE(store_->receipts().last().filePath, missing);
    }

    void fileThatIsStillThereIsNotExchanged() {
        const QString path = file("scan.pdf");
        file(builtName);
        store_->add(finishedReceipt(path));
        recover();
        QCOMPARE(only().filePath, path);
    }

    void archiveThatWasCutOffIsCarriedThrough() {
        const QString ledger = archivePath(u"receipts-2024-05-01.csv"_s);
        store_->add(finishedReceipt(file("first.pdf")));
        store_->add(finishedReceipt(file("second.pdf")));
        const QString expected = ExportService::buildCSV(store_->receipts());
        ArchiveJournal().begin({ledger, Format::csv});
        // Killed after the first file.
        QVERIFY(ExportService::writeLedger(store_->receipts(), Format::csv, ledger));
        QVERIFY(QFile::rename(folder_ + u"/first.pdf"_s, archivePath(u"first.pdf"_s)));
        writeFile(archivePath(partOf(folder_ + u"/second.pdf"_s)), "half a fi");
        recover();
        QCOMPARE(archived(), (QStringList{u"first.pdf"_s, u"receipts-2024-05-01.csv"_s, u"second.pdf"_s}));
        QCOMPARE(QString::fromUtf8(readFile(ledger)), expected);
        QVERIFY(store_->receipts().isEmpty());
        QVERIFY(store_->hasFilePath(folder_ + u"/first.pdf"_s));
        QVERIFY(!ArchiveJournal().pending());
    }

    void onlyCopyOfAMovedFileIsKept() {
        const QString source = folder_ + u"/first.pdf"_s;
        store_->add(finishedReceipt(source));
        const QString ledger = archivePath(u"receipts-2024-05-01.csv"_s);
        ArchiveJournal().begin({ledger, Format::csv});
        writeFile(archivePath(partOf(source)), "the only copy");
        recover();
        QCOMPARE(readFile(archivePath(u"first.pdf"_s)), "the only copy");
        QVERIFY(store_->receipts().isEmpty());
    }

    void listThatCannotBeSavedIsReportedAtOnce() {
        const QString data = surroundings_.home.path(u"data/Fennick"_s);
        QVERIFY(QDir(data).removeRecursively());
        writeFile(data, "a file where the folder should be");
        QSignalSpy failures(appState_.get(), &AppState::lastErrorChanged);
        store_->add(finishedReceipt(folder_ + u"/a.pdf"_s));
        QCOMPARE(appState_->lastError(), u"The list could not be saved: Not a directory"_s);
        store_->add(finishedReceipt(folder_ + u"/b.pdf"_s));
        QCOMPARE(failures.size(), 1); // said once
        QVERIFY(QFile::remove(data) && QDir().mkpath(data));
        store_->add(finishedReceipt(folder_ + u"/c.pdf"_s));
        QCOMPARE(ReceiptStore().receipts().size(), 3);
        QCOMPARE(failures.size(), 1);
    }

    void archiveWithoutItsLedgerYetGetsOne() {
        store_->add(finishedReceipt(file("first.pdf")));
        const QString ledger = archivePath(u"receipts-2024-05-01 (2).html"_s);
        ArchiveJournal().begin({ledger, Format::html});
        recover();
        QVERIFY(readFile(ledger).startsWith("<!doctype html>\n"));
        QVERIFY(store_->receipts().isEmpty());
    }

    void archiveThatWasCutOffAfterTheClearingLeavesNewFilesAlone() {
        ArchiveJournal().begin({archivePath(u"receipts-2024-05-01.csv"_s), Format::csv});
        recover();
        QVERIFY(!ArchiveJournal().pending());
        store_->add(finishedReceipt(file("new.pdf")));
        recover();
        QCOMPARE(store_->receipts().size(), 1);
    }

    void archiveOutOfReachKeepsTheList() {
        const QString place = file("not a folder");
        store_->add(finishedReceipt(file("first.pdf")));
        ArchiveJournal().begin({place + u"/2024-05-01/receipts-2024-05-01.csv"_s, Format::csv});
        recover();
        QCOMPARE(store_->receipts().size(), 1);
        QVERIFY(QFileInfo::exists(folder_ + u"/first.pdf"_s));
        QVERIFY(appState_->lastError()->startsWith(u"Couldn't create archive folder: "));
    }

    void finishedArchiveLeavesNoJournal() {
        store_->add(finishedReceipt(file("first.pdf")));
        appState_->archiveAndClear(Format::csv);
        QVERIFY(!ArchiveJournal().pending());
        QCOMPARE(
            QDir(surroundings_.home.path(u"data/Fennick"_s)).entryList(QDir::Files),
            (QStringList{u"ignored-dates.json"_s, u"ignored.json"_s, u"receipts.json"_s, u"undo.json"_s}));
    }

private:
    void recover() {
        const QFuture<void> recovery = appState_->recoverFromInterruption();
        QVERIFY(waitUntil([&] { return recovery.isFinished(); }));
    }

    // As a move to another file system that was cut off calls its copy.
    static QString partOf(const QString &source) {
        const QByteArray hash = QCryptographicHash::hash(source.toUtf8(), QCryptographicHash::Sha1).toHex();
        return u".moving-"_s + QString::fromLatin1(hash) + u"-1"_s;
    }

    QString file(const QString &name) const {
        const QString path = folder_ + u'/' + name;
        writeFile(path, "a receipt");
        return path;
    }
    QString file(const char *name) const { return file(QString::fromUtf8(name)); }

    const Receipt &only() const { return store_->receipts().at(0); }

    QString archivePath(const QString &name) const {
        const QString archive = folder_ + u"/Receipt Archive/2024-05-01"_s;
        QDir().mkpath(archive);
        return archive + u'/' + name;
    }
    QStringList archived() const {
        return QDir(archivePath(QString())).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_; // the surroundings it makes, not its own stores
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<AppState> appState_;
    QString folder_;
};

int recovery_test(int argc, char **argv) {
    return runTest<QApplication, RecoveryTest>(argc, argv);
}
#include "recovery_test.moc"
