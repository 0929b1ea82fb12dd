#include "model/receipt_json.h"
#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"
#include "text/path_text.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Format = ExportService::Format;

class ArchiveTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->start();
        stamp_ = QDate::currentDate().toString(Qt::ISODate);
    }
    void cleanup() { pipeline_.reset(); }

    void archiveLiesInTheWatchedFolderUnlessOneIsChosen() {
        const QString inWatched = pipeline_->path(u"Receipt Archive"_s);
        QCOMPARE(appState().archiveRoot(), inWatched);
        settings().setArchiveFolderPath(QString()); // present but empty
        QCOMPARE(appState().archiveRoot(), inWatched);
        settings().setArchiveFolderPath(u"/archive/"_s);
        QCOMPARE(appState().archiveRoot(), u"/archive"_s);
        QCOMPARE(appState().archiveDestinationPath(), u"/archive/"_s + stamp_);
    }

    void destinationWithoutAnyFolderIsTheBareName() {
        settings().setWatchFolderPath(std::nullopt);
        QVERIFY(!appState().archiveRoot());
        QCOMPARE(appState().archiveDestinationPath(), u"Receipt Archive/"_s + stamp_);
        settings().setWatchFolderPath(QString());
        QVERIFY(!appState().archiveRoot());
    }

    void withoutAnyFolderNothingHappensButAnError() {
        list("a.pdf");
        settings().setWatchFolderPath(std::nullopt);
        appState().archiveAndClear(Format::csv);
        QCOMPARE(appState().lastError(), u"No archive location set — choose one in Settings."_s);
        QCOMPARE(pipeline_->receipts().size(), 1);
    }

    void emptyListMakesNoFolderAndNoError() {
        appState().archiveAndClear(Format::csv);
        QVERIFY(!appState().lastError());
        QVERIFY(!QFileInfo::exists(pipeline_->path(u"Receipt Archive"_s)));
    }

    void ledgerAndFilesMoveAndTheListIsCleared() {
        const QString path = list("a.pdf");
        const QString ledger = ExportService::buildCSV(pipeline_->receipts());
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived(), (QStringList{u"a.pdf"_s, ledgerName(".csv")}));
        QCOMPARE(QString::fromUtf8(readFile(archivePath(ledgerName(".csv")))), ledger);
        QVERIFY(!QFileInfo::exists(path));
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(pipeline_->store->hasFilePath(path));
        QVERIFY(!appState().lastError());
    }

    void htmlLedgerIsWrittenOnWish() {
        list("a.pdf");
        appState().archiveAndClear(Format::html);
        QVERIFY(readFile(archivePath(ledgerName(".html"))).startsWith("<!doctype html>\n"));
    }

    void secondArchiveOfADayWritesASecondLedger() {
        list("a.pdf");
        appState().archiveAndClear(Format::csv);
        list("b.pdf");
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived(),
                 (QStringList{u"a.pdf"_s, u"b.pdf"_s, ledgerName(" (2).csv"), ledgerName(".csv")}));
    }

    void filesOfTheSameNameAreNumbered() {
        list("one/name.pdf");
        list("two/name.pdf");
        list("three/name");
        list("four/name");
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived(), (QStringList{u"name"_s, u"name (2)"_s, u"name (2).pdf"_s, u"name.pdf"_s,
                                          ledgerName(".csv")}));
    }

    void nameThatBeginsWithAColonStaysInItsFolder_data() {
        QTest::addColumn<QString>("name");
        for (const char *const name : {":receipt.pdf", "::.pdf", ":", ":/a.pdf"}) {
            QTest::newRow(name) << QString::fromUtf8(name);
        }
    }
    void nameThatBeginsWithAColonStaysInItsFolder() {
        QFETCH(QString, name);
        list(name.toUtf8().constData());
        list(u"other/%1"_s.arg(name).toUtf8().constData());
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived().size(), 3); // with the ledger
        QCOMPARE(readFile(archivePath(lastPathComponent(name))), "content");
    }

    void droppedNameThatBeginsWithAColonIsCopiedIntoTheFolder() {
        const QString dropped = surroundings_.home.path(u"desktop/:receipt.pdf"_s);
        writeFile(dropped, "dropped");
        appState().copyIntoWatchFolder({dropped});
        const QString copy = pipeline_->path(u":receipt.pdf"_s);
        QVERIFY(waitUntil([&] { return QFile::exists(copy) && !readFile(copy).isEmpty(); }));
        QVERIFY(!QFile::exists(u":receipt.pdf"_s));
    }

    void missingFileIsPassedOverButListedInTheLedger() {
        QFile::remove(list("gone.pdf"));
        list("here.pdf");
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived(), (QStringList{u"here.pdf"_s, ledgerName(".csv")}));
        QVERIFY(readFile(archivePath(ledgerName(".csv"))).contains("gone.pdf"));
        QVERIFY(pipeline_->receipts().isEmpty());
    }

    void everyStatusIsArchivedAlike() {
        for (const auto status : {ReceiptStatus::processing, ReceiptStatus::error}) {
            Receipt receipt = finishedReceipt(QString());
            receipt.filePath = pipeline_->path(rawValue(status) + u".txt"_s);
            receipt.status = status;
            writeFile(receipt.filePath, "x");
            pipeline_->store->add(receipt);
        }
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived().size(), 3);
    }

    void folderThatCannotBeMadeKeepsEverything() {
        const QString path = list("a.pdf");
        writeFile(pipeline_->path(u"Receipt Archive"_s), "a file where the folder should be");
        appState().archiveAndClear(Format::csv);
        QVERIFY2(appState().lastError()->startsWith(u"Couldn't create archive folder: "),
                 qPrintable(*appState().lastError()));
        QVERIFY(!appState().lastError()->endsWith(u": "));
        QCOMPARE(pipeline_->receipts().size(), 1);
        QVERIFY(QFileInfo::exists(path));
    }

    void archivedFilesAreNotTakenInAgain() {
        pipeline_->drop(u"a.png"_s, "picture");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        appState().archiveAndClear(Format::csv);
        letTimePass(1500);
        pipeline_->start();
        letTimePass(1500);
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(pipeline_->server.requests().size(), 1);
    }

    void otherFileSystemIsNoObstacle() {
        QTemporaryDir elsewhere(u"/dev/shm/fennick-archive-XXXXXX"_s);
        if (!elsewhere.isValid()) {
            QSKIP("No second file system to archive to");
        }
        settings().setArchiveFolderPath(elsewhere.path());
        const QString path = list("a.pdf", QByteArray(3'000'000, 'x'));
        appState().archiveAndClear(Format::csv);
        QCOMPARE(readFile(elsewhere.filePath(stamp_ + u"/a.pdf"_s)), QByteArray(3'000'000, 'x'));
        QVERIFY(!QFileInfo::exists(path));
        const QStringList hidden =
            QDir(elsewhere.filePath(stamp_)).entryList(QDir::Files | QDir::Hidden).filter(u".moving"_s);
        QVERIFY(hidden.isEmpty());
    }

private:
    AppState &appState() { return *pipeline_->appState; }
    SettingsStore &settings() { return *pipeline_->settings; }

    // Lists a finished receipt whose file lies in the watched folder, under a name that intake does not look
    // at while the test runs.
    QString list(const char *name, const QByteArray &content = "content") {
        const QString path = pipeline_->path(QString::fromUtf8(name));
        pipeline_->store->add(finishedReceipt(path));
        writeFile(path, content);
        return path;
    }

    QString archivePath(const QString &name) const {
        return pipeline_->path(u"Receipt Archive/"_s + stamp_ + u'/' + name);
    }

    QStringList archived() const { return QDir(archivePath(QString())).entryList(QDir::Files, QDir::Name); }

    QString ledgerName(const char *ending) const {
        return u"receipts-"_s + stamp_ + QString::fromUtf8(ending);
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    QString stamp_;
};

int archive_test(int argc, char **argv) {
    return runTest<QApplication, ArchiveTest>(argc, argv);
}
#include "archive_test.moc"
