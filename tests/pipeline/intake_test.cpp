#include "pipeline_under_test.h"
#include "support/test_program.h"
#include "text/path_text.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

namespace {

// Longer than debounce, stability wait and one batch of the watcher together.
constexpr int longEnoughToBeTakenIn = 1500;

} // namespace

class IntakeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void fileThatIsDroppedIsScannedRenamedAndListed() {
        pipeline_->start();
        pipeline_->drop(u"Receipt.PDF"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->listedNames(), QStringList{finalName});
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"a receipt"});
    }

    void otherKindsOfFilesAreLeftAlone() {
        pipeline_->drop(u"old.txt"_s);
        pipeline_->start();
        for (const char *const name : {"notes.txt", "scan.tiff", "receipt", "archive.pdf.zip", "pdf"}) {
            pipeline_->drop(QString::fromUtf8(name));
        }
        letTimePass(longEnoughToBeTakenIn);
        QVERIFY(pipeline_->receipts().isEmpty());
    }

    void everySupportedKindIsTakenIn() {
        for (const char *const name : {"a.pdf", "b.PNG", "c.jpg", "d.Jpeg", "e.heic", "f.WEBP"}) {
            pipeline_->drop(QString::fromUtf8(name));
        }
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(6, ReceiptStatus::done));
    }

    void receiptIsListedAsProcessingWhileItIsScanned() {
        pipeline_->server.holdAnswers();
        pipeline_->start();
        const QString path = pipeline_->drop(u"a.pdf"_s);
        QVERIFY(waitUntil([&] { return pipeline_->receipts().size() == 1; }));
        const Receipt receipt = pipeline_->receipts().first();
        QCOMPARE(receipt.status, ReceiptStatus::processing);
        QCOMPARE(receipt.filePath, path);
        QCOMPARE(receipt.category, u"misc"_s);
        pipeline_->server.letAnswersGo();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void tenWritesWithinTheDebounceLeadToOneRequest() {
        pipeline_->start();
        for (int write = 1; write <= 10; ++write) {
            pipeline_->drop(u"a.pdf"_s, QByteArray(write, 'x'));
            letTimePass(20);
        }
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{QByteArray(10, 'x')});
    }

    void emptyFileIsRefusedUntilSomethingIsWritten() {
        pipeline_->start();
        pipeline_->drop(u"a.pdf"_s, "");
        letTimePass(longEnoughToBeTakenIn);
        QVERIFY(pipeline_->receipts().isEmpty());
        pipeline_->drop(u"a.pdf"_s, "content");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void emptyFileIsRefusedByTheInitialScan() {
        pipeline_->drop(u"a.pdf"_s, "");
        pipeline_->start();
        letTimePass(longEnoughToBeTakenIn);
        QVERIFY(pipeline_->receipts().isEmpty());
    }

    void fileThatGrowsDuringTheWaitIsNeverSentInPart() {
        pipeline_->drop(u"a.pdf"_s, "first half,");
        pipeline_->start(); // the initial scan begins its wait at once
        letTimePass(250);
        QFile file(pipeline_->path(u"a.pdf"_s));
        QVERIFY(file.open(QIODevice::Append));
        file.write(" second half");
        file.close();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"first half, second half"});
    }

    void fileThatKeepsGrowingHoldsUpNoOther() {
        const QString growing = pipeline_->drop(u"a.pdf"_s, "x");
        pipeline_->drop(u"b.pdf"_s, "small");
        QTimer writer;
        connect(&writer, &QTimer::timeout, this, [&] {
            QFile file(growing);
            QVERIFY(file.open(QIODevice::Append));
            file.write("x");
        });
        writer.start(400); // so that each change comes to its end before the next
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"small"});
        writer.stop();
        const QByteArray whole = readFile(growing);
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        QCOMPARE(pipeline_->sentDocuments(), (QList<QByteArray>{"small", whole}));
    }

    void vanishedFileIsForgotten() {
        pipeline_->start();
        QFile::remove(pipeline_->drop(u"a.pdf"_s));
        QFile::remove(pipeline_->drop(u"b.pdf"_s));
        letTimePass(500);
        pipeline_->drop(u"b.pdf"_s, "again");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"again"});
    }

    void archivesAreLeftAlone_data() {
        QTest::addColumn<QString>("archive");
        QTest::addColumn<bool>("isConfigured");
        QTest::newRow("default archive") << u"Receipt Archive/2025-03-03"_s << false;
        QTest::newRow("configured") << u"Done"_s << true;
        QTest::newRow("configured with a slash") << u"Done/"_s << true;
        QTest::newRow("configured with two slashes") << u"Done//"_s << true;
        QTest::newRow("configured with a detour") << u"x/../Done"_s << true;
    }
    void archivesAreLeftAlone() {
        QFETCH(QString, archive);
        QFETCH(bool, isConfigured);
        const QString folder = QDir::cleanPath(archive);
        pipeline_->drop(folder + u"/existing.pdf"_s);
        pipeline_->drop(folder.section(u'/', 0, 0) + u"-not/existing.pdf"_s, "neighbour");
        pipeline_->start();
        if (isConfigured) {
            pipeline_->settings->setArchiveFolderPath(pipeline_->path(archive));
        }
        pipeline_->drop(folder + u"/new.pdf"_s);
        pipeline_->drop(folder + u"/deep/new.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"neighbour"});
    }

    void initialScanSkipsWhatIsHiddenAndDescendsElsewhere() {
        pipeline_->drop(u".hidden.pdf"_s, "hidden");
        pipeline_->drop(u".folder/a.pdf"_s, "hidden");
        pipeline_->drop(u"one/two/a.pdf"_s, "found");
        QFile::link(pipeline_->path(u"one/two/a.pdf"_s), pipeline_->path(u"link.pdf"_s));
        QFile::link(pipeline_->path(u"one"_s), pipeline_->path(u"linked"_s));
        pipeline_->start();
        QVERIFY(waitUntil([this] { return pipeline_->receipts().size() == 2; }));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"found"});
        QCOMPARE(pipeline_->listedNames(), (QStringList{finalName, u"link.pdf"_s}));
    }

    void initialScanTakesFilesInOneAfterTheOther() {
        countRequestsUnderWay();
        for (int index = 0; index < 4; ++index) {
            pipeline_->drop(QString::number(index) + u".pdf"_s);
        }
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(4, ReceiptStatus::done));
        QCOMPARE(mostUnderWay_, 1);
        QVERIFY(waitUntil([this] { return underWay_ == 0; }));
    }

    void filesThatArriveTogetherAreUnderWayTogether() {
        pipeline_->start();
        pipeline_->server.holdAnswers();
        for (int index = 0; index < 12; ++index) {
            pipeline_->drop(QString::number(index) + u".pdf"_s);
        }
        QVERIFY(waitUntil([&] { return pipeline_->server.requests().size() == 12; }));
        pipeline_->server.letAnswersGo();
        QVERIFY(pipeline_->waitForRows(12, ReceiptStatus::done));
    }

    void fileToldByScanAndEventIsAdmittedOnce() {
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        letTimePass(100);
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->server.requests().size(), 1);
        QCOMPARE(pipeline_->receipts().size(), 1);
    }

    void clearedPathIsNeverTakenInAgain() {
        pipeline_->server.setScript([](const HttpRequest &) {
            return HttpReply{.status = 500, .body = {}, .headers = {}}; // keeps the name
        });
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        pipeline_->store->clearAll();
        pipeline_->server.forgetRequests();
        pipeline_->drop(u"a.pdf"_s, "changed");
        letTimePass(longEnoughToBeTakenIn);
        pipeline_->start();
        letTimePass(longEnoughToBeTakenIn);
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(pipeline_->server.requests().isEmpty());
    }

    void changingTheFolderScansTheNewOneAndForgetsTheOld() {
        pipeline_->start();
        const QString other = pipeline_->path(QString()) + u"../other"_s;
        writeFile(other + u"/existing.pdf"_s, "in the new folder");
        pipeline_->appState->startWatching(QDir::cleanPath(other));
        pipeline_->drop(u"a.pdf"_s, "in the old folder");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        writeFile(other + u"/later.pdf"_s, "later");
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), (QList<QByteArray>{"in the new folder", "later"}));
        QDir(QDir::cleanPath(other)).removeRecursively();
    }

    // The first file never comes to rest before the folder is changed, so that its debounce is still pending.
    void eventThatCameBeforeTheFolderChangedIsNotForgotten() {
        pipeline_->start();
        QByteArray content = "in the old folder";
        QTimer writer;
        connect(&writer, &QTimer::timeout, this, [&] { pipeline_->drop(u"a.pdf"_s, content += '.'); });
        writer.start(50);
        QVERIFY(waitUntil([&] { return QFile::exists(pipeline_->path(u"a.pdf"_s)); }));
        pipeline_->drop(u"b.pdf"_s, "a later event");
        QVERIFY(waitUntil([this] { return !pipeline_->receipts().isEmpty(); }));
        pipeline_->appState->startWatching(surroundings_.home.path(u"other"_s));
        writer.stop();
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        QVERIFY(pipeline_->sentDocuments().contains(content));
    }

    void folderSpelledWithASlashAtTheEndIsTheSame() {
        pipeline_->start();
        pipeline_->appState->startWatching(pipeline_->path(QString()));
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QVERIFY(!pipeline_->receipts().first().filePath.contains(u"//"));
    }

    void hiddenFilesAreSkippedByListingsOnly() {
        pipeline_->drop(u".before.pdf"_s);
        pipeline_->drop(u"a.pdf"_s, "listed");
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        pipeline_->drop(u".arrives.pdf"_s, "hidden");
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), (QList<QByteArray>{"listed", "hidden"}));
    }

    void withoutAFolderTheRunningWatchGoesOn() {
        pipeline_->start();
        pipeline_->settings->setWatchFolderPath(QString());
        pipeline_->appState->startWatchingIfConfigured();
        pipeline_->settings->setWatchFolderPath(std::nullopt);
        pipeline_->appState->startWatchingIfConfigured();
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void missingFolderIsNoFailure() {
        QDir(pipeline_->path(QString())).removeRecursively();
        pipeline_->start();
        letTimePass(200);
        QVERIFY(!pipeline_->appState->lastError());
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void movedInTreeIsTakenInWhole() {
        pipeline_->start();
        const QString outside = surroundings_.home.path(u"outside"_s);
        constexpr int files = 15;
        for (int index = 0; index < files; ++index) {
            writeFile(outside + u"/sub%1/receipt.pdf"_s.arg(index), QByteArray::number(index));
        }
        QVERIFY(QDir().rename(outside, pipeline_->path(u"moved"_s)));
        QVERIFY(waitUntil([&] { return pipeline_->receipts().size() == files; }));
        QVERIFY(pipeline_->waitForRows(files, ReceiptStatus::done));
        QCOMPARE(pipeline_->server.requests().size(), files);
    }

    void whatIsFoundLaterIsTakenInAsAtTheStart_data() {
        QTest::addColumn<bool>("isMovedIn");
        QTest::newRow("a folder is moved in") << true;
        QTest::newRow("the watched folder was away") << false;
    }
    void whatIsFoundLaterIsTakenInAsAtTheStart() {
        QFETCH(bool, isMovedIn);
        countRequestsUnderWay();
        pipeline_->start();
        const QString outside = surroundings_.home.path(u"outside-again"_s);
        const QString watched = QDir::cleanPath(pipeline_->path(QString()));
        if (!isMovedIn) {
            QVERIFY(QDir().rename(watched, outside));
        }
        for (const char *const name : {"1.pdf", "2.pdf", "sub/3.pdf", "sub/4.pdf"}) {
            writeFile(joinedPath(outside, QString::fromUtf8(name)), "found");
        }
        for (const char *const name : {".5.pdf", ".Trash/6.pdf", "sub/.Trash-1000/files/7.pdf"}) {
            writeFile(joinedPath(outside, QString::fromUtf8(name)), "hidden");
        }
        QVERIFY(QDir().mkpath(joinedPath(outside, u"folder.pdf"_s)));
        QVERIFY(QDir().rename(outside, isMovedIn ? pipeline_->path(u"moved"_s) : watched));
        QVERIFY(waitUntil([this] { return pipeline_->receipts().size() == 4; }));
        QVERIFY(pipeline_->waitForRows(4, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>(4, "found"));
        QCOMPARE(pipeline_->receipts().size(), 4);
        QCOMPARE(mostUnderWay_, 1);
        QVERIFY(waitUntil([this] { return underWay_ == 0; }));
    }

    void eventsOfARenamingAreItsOwn() {
        pipeline_->start();
        // The row does not keep the new path, so only the renaming itself keeps the file from being read
        // again.
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [this] {
            Receipt receipt = pipeline_->receipts().first();
            if (receipt.fileName == finalName && receipt.filePath.endsWith(finalName)) {
                receipt.filePath = u"/elsewhere"_s;
                QTimer::singleShot(0, this, [this, receipt] { pipeline_->store->update(receipt); });
            }
        });
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(waitUntil([this] {
            return !pipeline_->receipts().isEmpty() &&
                   pipeline_->receipts().first().filePath == u"/elsewhere"_s;
        }));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->receipts().size(), 1);
        QVERIFY(QFile::exists(pipeline_->path(finalName)));
    }

private:
    // Lets the service take a little for each answer.
    void countRequestsUnderWay() {
        underWay_ = 0;
        mostUnderWay_ = 0;
        pipeline_->server.setScript([this](const HttpRequest &) {
            mostUnderWay_ = std::max(mostUnderWay_, ++underWay_);
            QTimer::singleShot(50, pipeline_->appState.get(), [this] { --underWay_; });
            HttpReply reply = answering("{}");
            reply.delay = milliseconds(60);
            return reply;
        });
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    int underWay_ = 0;
    int mostUnderWay_ = 0;
};

int intake_test(int argc, char **argv) {
    return runTest<QApplication, IntakeTest>(argc, argv);
}
#include "intake_test.moc"
