#include "pipeline/archive_journal.h"
#include "pipeline/undo/deed_record.h"
#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Format = ExportService::Format;

class UndoArchiveTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->start();
        QDir(trash()).removeRecursively();
    }
    void cleanup() { pipeline_.reset(); }

    void filesRowsAndIgnoredPathsReturnAndTheLedgerGoesIntoTheTrash() {
        const QList<Receipt> before = listThree();
        archive();
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(history().stack()->undoText(), u"Archive & Clear"_s);
        const QStringList ledgers = archived(u"receipts-*.csv"_s);
        QCOMPARE(ledgers.size(), 1);
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        QCOMPARE(ReceiptStore().receipts(), before);
        QVERIFY(ReceiptStore().ignoredPaths().isEmpty());
        checkFiles(before);
        QCOMPARE(archived(u"*"_s), QStringList());
        QCOMPARE(QDir(trash()).entryList(QDir::Files), ledgers);
        QVERIFY(DeedRecord().deeds().isEmpty());
        pipeline_->start(); // looks at all files of the folder
        letTimePass(1500);
        QCOMPARE(pipeline_->receipts(), before);
        QVERIFY(pipeline_->server.requests().isEmpty());
    }

    void archiveIsDoneAgainForItsOwnReceipts() {
        const QList<Receipt> before = listThree();
        archive();
        history().undo();
        const Receipt newer = finishedReceipt(pipeline_->path(u"newer.txt"_s));
        pipeline_->store->add(newer);
        pipeline_->drop(u"newer.txt"_s);
        history().redo();
        QCOMPARE(pipeline_->receipts(), QList<Receipt>{newer});
        QCOMPARE(archived(u"*.pdf"_s).size(), 3);
        QCOMPARE(archived(u"receipts-*.csv"_s).size(), 1);
        history().undo();
        QCOMPARE(pipeline_->receipts().size(), 4);
        checkFiles(before);
    }

    void archiveIsUndoneAfterARestart() {
        const QList<Receipt> before = listThree();
        archive();
        restart();
        QVERIFY(pipeline_->receipts().isEmpty());
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        checkFiles(before);
        QVERIFY(archived(u"*"_s).isEmpty());
        restart();
        QVERIFY(!history().stack()->canUndo());
    }

    void lastClearingAndLastArchiveAreBothUndoneAfterARestart() {
        const QList<Receipt> before = listThree();
        archive();
        pipeline_->store->add(finishedReceipt(u"/w/other.pdf"_s));
        history().clearAll();
        restart();
        QCOMPARE(history().stack()->undoText(), u"Clear All"_s);
        history().undo();
        QCOMPARE(history().stack()->undoText(), u"Archive & Clear"_s);
        history().undo();
        QCOMPARE(pipeline_->receipts().size(), 4);
        checkFiles(before);
    }

    void filesOfTheSameNameReturnToTheirFolders() {
        for (const QString &name : {u"one/a.pdf"_s, u"two/a.pdf"_s}) {
            pipeline_->store->add(finishedReceipt(pipeline_->path(name)));
            pipeline_->drop(name, name.toUtf8());
        }
        const QList<Receipt> before = pipeline_->receipts();
        archive();
        QCOMPARE(archived(u"*.pdf"_s), (QStringList{u"a (2).pdf"_s, u"a.pdf"_s}));
        QVERIFY(QDir(pipeline_->path(u"two"_s)).removeRecursively()); // is made again
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        for (const Receipt &receipt : before) {
            QVERIFY(receipt.filePath.endsWith(QString::fromUtf8(readFile(receipt.filePath))));
        }
    }

    void takenNameGetsANumberAndIsNotReadAgain() {
        const QList<Receipt> before = listThree();
        archive();
        writeFile(before[0].filePath, "another"); // ignored, as the archived one
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        const Receipt moved = *pipeline_->store->receipt(before[0].id);
        QCOMPARE(moved.fileName, u"a (2).pdf"_s);
        QCOMPARE(readFile(moved.filePath), "content of a.pdf");
        QCOMPARE(readFile(before[0].filePath), "another");
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{u"a.pdf: Another file has this name; it is now “a (2).pdf”."_s});
        QVERIFY(pipeline_->store->ignoredPaths().isEmpty());
        letTimePass(1500);
        QVERIFY(!pipeline_->sentDocuments().contains("content of a.pdf"));
    }

    void fileThatIsGoneIsReportedAndTheRestReturns() {
        const QList<Receipt> before = listThree();
        archive();
        QVERIFY(QFile::remove(archivePath(u"b.pdf"_s)));
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{u"b.pdf: The file is no longer there."_s});
        QVERIFY(QFileInfo::exists(before[0].filePath));
        QVERIFY(QFileInfo::exists(before[2].filePath));
    }

    void missingFileOfTheListIsMissingAgain() {
        const QList<Receipt> before = listThree();
        QVERIFY(QFile::remove(before[1].filePath));
        archive();
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        QVERIFY(reports.isEmpty());
    }

    void fileThatCannotBeMovedStaysInTheArchiveAndItsRowLeadsThere() {
        const QString path = pipeline_->path(u"sub/a.pdf"_s);
        pipeline_->store->add(finishedReceipt(path));
        pipeline_->drop(u"sub/a.pdf"_s);
        archive();
        QVERIFY(QDir(QFileInfo(path).path()).removeRecursively());
        pipeline_->drop(u"sub"_s, "a file where the folder was");
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(pipeline_->receipts().first().filePath, archivePath(u"a.pdf"_s));
        QCOMPARE(readFile(archivePath(u"a.pdf"_s)), "a receipt");
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{u"a.pdf: The file stays where it is: Not a directory"_s});
    }

    void otherFileSystemIsNoObstacle() {
        const QTemporaryDir elsewhere(u"/dev/shm/fennick-undo-XXXXXX"_s);
        if (!elsewhere.isValid()) {
            QSKIP("No second file system to archive to");
        }
        pipeline_->settings->setArchiveFolderPath(elsewhere.path());
        const QList<Receipt> before = listThree();
        archive();
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        checkFiles(before);
    }

    void killedArchiveIsCarriedThroughAndCanBeUndone() {
        const QList<Receipt> before = listThree();
        recordArchive(false);
        QVERIFY(QDir().mkpath(archivePath(QString())));
        QVERIFY(QFile::rename(before[0].filePath, archivePath(u"a (3).pdf"_s))); // as it was planned
        ArchiveJournal().begin({archivePath(u"receipts-x.csv"_s), Format::csv});
        restart();
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(archived(u"*.pdf"_s), (QStringList{u"a (3).pdf"_s, u"b (3).pdf"_s, u"c (3).pdf"_s}));
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        checkFiles(before);
    }

    void killedUndoIsCompleted_data() {
        QTest::addColumn<int>("movedFiles");
        QTest::addColumn<bool>("isListed");
        QTest::newRow("before the first file") << 0 << false;
        QTest::newRow("after the first file") << 1 << false;
        QTest::newRow("before the rows") << 3 << false;
        QTest::newRow("before the ledger") << 3 << true;
    }
    void killedUndoIsCompleted() {
        QFETCH(int, movedFiles);
        QFETCH(bool, isListed);
        const QList<Receipt> before = listThree();
        archive();
        RecordedDeed deed = DeedRecord().deeds().first();
        deed.isBeingUndone = true;
        DeedRecord().insert(deed);
        for (int file = 0; file < movedFiles; ++file) {
            QVERIFY(QFile::rename(deed.files[file].to, deed.files[file].from));
        }
        if (isListed) {
            pipeline_->store->putBack(deed.removed);
        }
        restart();
        QCOMPARE(pipeline_->receipts(), before);
        checkFiles(before);
        QVERIFY(ReceiptStore().ignoredPaths().isEmpty());
        QVERIFY(archived(u"*"_s).isEmpty());
        QVERIFY(!history().stack()->canUndo());
    }

    void recordOfAnotherHandMovesNothingOutOfTheFolders_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::newRow("target elsewhere") << home(u"elsewhere.pdf"_s) << u"archive"_s;
        QTest::newRow("source elsewhere") << u"watched"_s << home(u"secret.pdf"_s);
        QTest::newRow("target behind a link") << u"link"_s << u"archive"_s;
        QTest::newRow("source is a link") << u"watched"_s << u"linked"_s;
    }
    void recordOfAnotherHandMovesNothingOutOfTheFolders() {
        QFETCH(QString, from);
        QFETCH(QString, to);
        listThree();
        archive();
        writeFile(home(u"secret.pdf"_s), "secret");
        QVERIFY(QDir().mkpath(home(u"outside"_s)));
        QFile::link(home(u"outside"_s), pipeline_->path(u"linked folder"_s));
        QFile::link(home(u"secret.pdf"_s), archivePath(u"link.pdf"_s));
        RecordedDeed deed = DeedRecord().deeds().first();
        MovedFile &file = deed.files.first();
        file.from = from == u"link"      ? pipeline_->path(u"linked folder/a.pdf"_s)
                    : from == u"watched" ? file.from
                                         : from;
        file.to = to == u"linked" ? archivePath(u"link.pdf"_s) : (to == u"archive" ? file.to : to);
        DeedRecord().insert(deed);
        restart();
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(reports.size(), 1);
        QCOMPARE(readFile(home(u"secret.pdf"_s)), "secret");
        QVERIFY(!QFileInfo::exists(home(u"elsewhere.pdf"_s)));
        QVERIFY(QDir(home(u"outside"_s)).isEmpty());
        QVERIFY(QFileInfo::exists(archivePath(u"a.pdf"_s)));
        QCOMPARE(pipeline_->receipts().size(), 3);
        QFile::remove(home(u"secret.pdf"_s));
    }

private:
    UndoHistory &history() { return *pipeline_->appState->history(); }

    QList<Receipt> listThree() {
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s}) {
            pipeline_->store->add(finishedReceipt(pipeline_->path(name)));
            pipeline_->drop(name, "content of " + name.toUtf8());
        }
        return pipeline_->receipts();
    }

    void archive() { pipeline_->appState->archiveAndClear(Format::csv); }

    void recordArchive(bool isBeingUndone) {
        RecordedDeed deed;
        deed.id = u"1"_s;
        deed.kind = RecordedDeed::Kind::archive;
        deed.removed = pipeline_->store->beforeRemovalOfAll();
        deed.isBeingUndone = isBeingUndone;
        deed.ledgerPath = archivePath(u"receipts-x.csv"_s);
        for (const auto &[receipt, rowsBelow] : deed.removed.rows) {
            const QString name = receipt.fileName.left(1) + u" (3).pdf"_s;
            deed.files.append({receipt.id, receipt.filePath, archivePath(name)});
        }
        DeedRecord().insert(deed);
    }

    void restart() {
        pipeline_->appState.reset();
        pipeline_->store = std::make_unique<ReceiptStore>();
        pipeline_->appState = std::make_unique<AppState>(pipeline_->store.get(), pipeline_->settings.get());
        const QFuture<void> recovery = pipeline_->appState->recoverFromInterruption();
        QVERIFY(waitUntil([&] { return recovery.isFinished(); }));
    }

    static void checkFiles(const QList<Receipt> &receipts) {
        for (const Receipt &receipt : receipts) {
            QCOMPARE(readFile(receipt.filePath), "content of " + receipt.fileName.toUtf8());
        }
    }

    QString home(const QString &name) const { return surroundings_.home.path(name); }
    QString trash() const { return home(u"data/Trash/files"_s); }
    QString archivePath(const QString &name) const {
        return pipeline_->appState
                   ? pipeline_->appState->archiveDestinationPath() + u'/' + name
                   : pipeline_->path(u"Receipt Archive/"_s + AppState::dateStamp() + u'/' + name);
    }
    QStringList archived(const QString &pattern) const {
        return QDir(archivePath(QString())).entryList({pattern}, QDir::Files, QDir::Name);
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int undo_archive_test(int argc, char **argv) {
    return runTest<QApplication, UndoArchiveTest>(argc, argv);
}
#include "undo_archive_test.moc"
