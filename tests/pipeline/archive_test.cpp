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
        const QString inWatched = pipeline_->path(QStringLiteral("Receipt Archive"));
        QCOMPARE(appState().archiveRoot(), inWatched);
        settings().setArchiveFolderPath(QString()); // present but empty
        QCOMPARE(appState().archiveRoot(), inWatched);
        settings().setArchiveFolderPath(QStringLiteral("/archive/"));
        QCOMPARE(appState().archiveRoot(), QStringLiteral("/archive"));
        QCOMPARE(appState().archiveDestinationPath(), QStringLiteral("/archive/") + stamp_);
    }

    void destinationWithoutAnyFolderIsTheBareName() {
        settings().setWatchFolderPath(std::nullopt);
        QVERIFY(!appState().archiveRoot());
        QCOMPARE(appState().archiveDestinationPath(), QStringLiteral("Receipt Archive/") + stamp_);
        settings().setWatchFolderPath(QString());
        QVERIFY(!appState().archiveRoot());
    }

    void withoutAnyFolderNothingHappensButAnError() {
        list("a.pdf");
        settings().setWatchFolderPath(std::nullopt);
        appState().archiveAndClear(Format::csv);
        QCOMPARE(appState().lastError(), QStringLiteral("No archive location set — choose one in Settings."));
        QCOMPARE(pipeline_->receipts().size(), 1);
    }

    void emptyListMakesNoFolderAndNoError() {
        appState().archiveAndClear(Format::csv);
        QVERIFY(!appState().lastError());
        QVERIFY(!QFileInfo::exists(pipeline_->path(QStringLiteral("Receipt Archive"))));
    }

    void ledgerAndFilesMoveAndTheListIsCleared() {
        const QString path = list("a.pdf");
        const QString ledger = ExportService::buildCSV(pipeline_->receipts());
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived(), (QStringList{QStringLiteral("a.pdf"), ledgerName(".csv")}));
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
        QCOMPARE(archived(), (QStringList{QStringLiteral("a.pdf"), QStringLiteral("b.pdf"),
                                          ledgerName(" (2).csv"), ledgerName(".csv")}));
    }

    void filesOfTheSameNameAreNumbered() {
        list("one/name.pdf");
        list("two/name.pdf");
        list("three/name");
        list("four/name");
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived(), (QStringList{QStringLiteral("name"), QStringLiteral("name (2)"),
                                          QStringLiteral("name (2).pdf"), QStringLiteral("name.pdf"),
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
        list(QStringLiteral("other/%1").arg(name).toUtf8().constData());
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived().size(), 3); // with the ledger
        QCOMPARE(readFile(archivePath(lastPathComponent(name))), "content");
    }

    void droppedNameThatBeginsWithAColonIsCopiedIntoTheFolder() {
        const QString dropped = surroundings_.home.path(QStringLiteral("desktop/:receipt.pdf"));
        writeFile(dropped, "dropped");
        appState().copyIntoWatchFolder({dropped});
        const QString copy = pipeline_->path(QStringLiteral(":receipt.pdf"));
        QVERIFY(waitUntil([&] { return QFile::exists(copy) && !readFile(copy).isEmpty(); }));
        QVERIFY(!QFile::exists(QStringLiteral(":receipt.pdf")));
    }

    void missingFileIsPassedOverButListedInTheLedger() {
        QFile::remove(list("gone.pdf"));
        list("here.pdf");
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived(), (QStringList{QStringLiteral("here.pdf"), ledgerName(".csv")}));
        QVERIFY(readFile(archivePath(ledgerName(".csv"))).contains("gone.pdf"));
        QVERIFY(pipeline_->receipts().isEmpty());
    }

    void everyStatusIsArchivedAlike() {
        for (const auto status : {ReceiptStatus::processing, ReceiptStatus::error}) {
            Receipt receipt = finishedReceipt(QString());
            receipt.filePath = pipeline_->path(rawValue(status) + QStringLiteral(".txt"));
            receipt.status = status;
            writeFile(receipt.filePath, "x");
            pipeline_->store->add(receipt);
        }
        appState().archiveAndClear(Format::csv);
        QCOMPARE(archived().size(), 3);
    }

    void folderThatCannotBeMadeKeepsEverything() {
        const QString path = list("a.pdf");
        writeFile(pipeline_->path(QStringLiteral("Receipt Archive")), "a file where the folder should be");
        appState().archiveAndClear(Format::csv);
        QVERIFY2(appState().lastError()->startsWith(u"Couldn't create archive folder: "),
                 qPrintable(*appState().lastError()));
        QVERIFY(!appState().lastError()->endsWith(u": "));
        QCOMPARE(pipeline_->receipts().size(), 1);
        QVERIFY(QFileInfo::exists(path));
    }

    void archivedFilesAreNotTakenInAgain() {
        pipeline_->drop(QStringLiteral("a.png"), "picture");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        appState().archiveAndClear(Format::csv);
        letTimePass(1500);
        pipeline_->start();
        letTimePass(1500);
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(pipeline_->server.requests().size(), 1);
    }

    void otherFileSystemIsNoObstacle() {
        QTemporaryDir elsewhere(QStringLiteral("/dev/shm/fennick-archive-XXXXXX"));
        if (!elsewhere.isValid()) {
            QSKIP("No second file system to archive to");
        }
        settings().setArchiveFolderPath(elsewhere.path());
        const QString path = list("a.pdf", QByteArray(3'000'000, 'x'));
        appState().archiveAndClear(Format::csv);
        QCOMPARE(readFile(elsewhere.filePath(stamp_ + QStringLiteral("/a.pdf"))), QByteArray(3'000'000, 'x'));
        QVERIFY(!QFileInfo::exists(path));
        const QStringList hidden = QDir(elsewhere.filePath(stamp_))
                                       .entryList(QDir::Files | QDir::Hidden)
                                       .filter(QStringLiteral(".moving"));
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
        return pipeline_->path(QStringLiteral("Receipt Archive/") + stamp_ + u'/' + name);
    }

    QStringList archived() const { return QDir(archivePath(QString())).entryList(QDir::Files, QDir::Name); }

    QString ledgerName(const char *ending) const {
        return QStringLiteral("receipts-") + stamp_ + QString::fromUtf8(ending);
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    QString stamp_;
};

int archive_test(int argc, char **argv) {
    return runTest<QApplication, ArchiveTest>(argc, argv);
}
#include "archive_test.moc"
