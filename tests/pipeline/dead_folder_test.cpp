#include "pipeline/archive_journal.h"
#include "pipeline/folder_threads.h"
#include "pipeline/stability_watch.h"
#include "pipeline_under_test.h"
#include "support/private_namespace.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

bool canMountHere = false;

const QString noAnswer = u"The folder does not respond. Is its network connected?"_s;

} // namespace

// The files lie on a network that does not answer. What the user asks for is refused in words; nothing is
// lost, and nobody waits.
class DeadFolderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (!canMountHere) {
            QSKIP("Nothing can be mounted here.");
        }
        surroundings_ = std::make_unique<Surroundings>();
    }
    void cleanupTestCase() { surroundings_.reset(); }

    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(*surroundings_);
        pipeline_->start();
        share_ = surroundings_->home.path(u"share"_s);
        QDir().mkpath(share_);
        receipt_ = finishedReceipt(share_ + u"/scan.pdf"_s);
        pipeline_->store->add(receipt_);
        dead_ = std::make_unique<DeadFileSystem>(share_);
        QVERIFY(dead_->isMounted());
    }
    void cleanup() {
        pipeline_.reset();
        dead_.reset();
    }

    void itsFilesDoNotTakeTheThreadsOfOtherFolders() {
        const FolderThreads threads;
        for (int file = 0; file < 2 * threads.pool()->maxThreadCount(); ++file) {
            std::ignore = threads.whenAnswering(share_ + u"/%1.pdf"_s.arg(file));
        }
        const QFuture<void> elsewhere = threads.whenAnswering(pipeline_->path(u"a.pdf"_s));
        const bool isAnswered = waitUntil([&] { return elsewhere.isFinished(); });
        dead_.reset(); // or the threads would never end
        QVERIFY(isAnswered);
    }

    // Many of them are retried at once. If each waited a second by itself, this would take longer than CTest
    // lets a test run.
    void itIsWaitedForOnceOnly() {
        const FolderThreads threads;
        for (int file = 0; file < 3000; ++file) {
            QVERIFY(!threads.answersSoon(share_ + u"/%1.pdf"_s.arg(file)));
        }
        QVERIFY(threads.answersSoon(pipeline_->path(u"a.pdf"_s)));
        const QFuture<void> answer = threads.whenAnswering(share_ + u"/a.pdf"_s);
        dead_.reset();
        QVERIFY(waitUntil([&] { return answer.isFinished(); }));
        QVERIFY(threads.answersSoon(share_ + u"/a.pdf"_s));
    }

    void fileThatChangedIsWatchedAgainOnceTheFolderResponds() {
        dead_.reset();
        const FolderThreads threads;
        StabilityWatch watch(&threads);
        const QString path = share_ + u"/scan.pdf"_s;
        writeFile(path, "the first half");
        auto waiting = watch.wait(path, StabilityWatch::read(path));
        dead_ = std::make_unique<DeadFileSystem>(share_);
        auto restarting = watch.restart(path);
        QVERIFY(!restarting.isReady());
        dead_.reset();
        QVERIFY(waitUntil([&] { return restarting.isReady() && waiting.isReady(); }));
        QVERIFY(!QCoro::waitFor(std::move(waiting)));
        QVERIFY(watch.isWatching(path));
    }

    void retryFailsInWords() {
        pipeline_->appState->retry(receipt_);
        QCOMPARE(pipeline_->receipts().first().status, ReceiptStatus::error);
        QCOMPARE(pipeline_->receipts().first().error, noAnswer);
        QVERIFY(pipeline_->server.requests().isEmpty());
    }

    void photoIsRefused() {
        pipeline_->settings->setAddToPhotos(true);
        pipeline_->appState->pushToPhotos(receipt_);
        QVERIFY(waitUntil([this] { return pipeline_->appState->lastError().has_value(); }));
        QCOMPARE(pipeline_->appState->lastError(), u"Photos export failed: "_s + noAnswer);
        QVERIFY(!pipeline_->receipts().first().addedToPhotos);
    }

    void nothingIsArchived() {
        pipeline_->drop(u"other.pdf"_s);
        QVERIFY(waitUntil([this] { return pipeline_->receipts().size() == 2; }));
        QVERIFY(waitUntil([this] { return QFile::exists(pipeline_->path(finalName)); }));
        pipeline_->appState->archiveAndClear(ExportService::Format::csv);
        QCOMPARE(pipeline_->appState->lastError(), u"Nothing was archived: "_s + noAnswer);
        QCOMPARE(pipeline_->receipts().size(), 2);
        QVERIFY(QFile::exists(pipeline_->path(finalName)));
        QVERIFY(!QFile::exists(pipeline_->path(u"Receipt Archive"_s)));
    }

    void archiveIsNotUndone() {
        dead_.reset();
        writeFile(receipt_.filePath, "content");
        pipeline_->appState->archiveAndClear(ExportService::Format::csv);
        const QString archived = pipeline_->appState->archiveDestinationPath() + u"/scan.pdf"_s;
        dead_ = std::make_unique<DeadFileSystem>(share_);
        QVERIFY(dead_->isMounted());
        UndoHistory &history = *pipeline_->appState->history();
        QSignalSpy reports(&history, &UndoHistory::incomplete);
        history.undo();
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{u"Archive & Clear: The folder does not respond."_s});
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(QFile::exists(archived));
        dead_.reset();
        history.undo();
        QCOMPARE(pipeline_->receipts(), QList<Receipt>{receipt_});
        QCOMPARE(readFile(receipt_.filePath), "content");
    }

    void interruptedArchiveWaitsForTheNextStart() {
        const QString folder = pipeline_->path(u"Receipt Archive/2024-05-01"_s);
        ArchiveJournal().begin({folder + u"/receipts-2024-05-01.csv"_s, ExportService::Format::csv});
        pipeline_->appState->recoverFromInterruption();
        QVERIFY(ArchiveJournal().pending());
        QCOMPARE(pipeline_->receipts().size(), 1);
        dead_.reset();
        pipeline_->appState->recoverFromInterruption();
        QVERIFY(!ArchiveJournal().pending());
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(QFile::exists(folder + u"/receipts-2024-05-01.csv"_s));
    }

private:
    std::unique_ptr<Surroundings> surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    std::unique_ptr<DeadFileSystem> dead_;
    QString share_;
    Receipt receipt_;
};

int dead_folder_test(int argc, char **argv) {
    canMountHere = enterPrivateNamespace().canMount;
    return runTest<QApplication, DeadFolderTest>(argc, argv);
}
#include "dead_folder_test.moc"
