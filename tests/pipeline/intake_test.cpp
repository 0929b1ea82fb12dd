#include "pipeline_under_test.h"
#include "support/test_program.h"
#include "text/path_text.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <sys/resource.h>
#include <sys/stat.h>

using namespace fennick;
using namespace fennick::test;
using std::chrono::milliseconds;

namespace {

// Longer than debounce, stability wait and one batch of the watcher together.
constexpr int longEnoughToBeTakenIn = 1500;

const QString finalName = QStringLiteral("2024-05-01 Lunch - Dockside Deli $23.50.pdf");

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// Bytes, as the limit counts them.
rlim_t dataOfThisProcess() {
    const QByteArray status = readFile(QStringLiteral("/proc/self/status"));
    const qsizetype start = status.indexOf("VmData:") + 7;
    return status.mid(start, status.indexOf("kB", start) - start).trimmed().toULongLong() * 1024;
}
#endif

} // namespace

class IntakeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void fileThatIsDroppedIsScannedRenamedAndListed() {
        pipeline_->start();
        pipeline_->drop(QStringLiteral("Receipt.PDF"));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->listedNames(), QStringList{finalName});
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"a receipt"});
    }

    void otherKindsOfFilesAreLeftAlone() {
        pipeline_->drop(QStringLiteral("old.txt"));
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
        HttpReply slow = answering("{}");
        slow.delay = milliseconds(400);
        pipeline_->server.setScript([slow](const HttpRequest &) { return slow; });
        pipeline_->start();
        const QString path = pipeline_->drop(QStringLiteral("a.pdf"));
        QVERIFY(waitUntil([&] { return pipeline_->receipts().size() == 1; }));
        const Receipt receipt = pipeline_->receipts().first();
        QCOMPARE(receipt.status, ReceiptStatus::processing);
        QCOMPARE(receipt.filePath, path);
        QCOMPARE(receipt.category, QStringLiteral("misc"));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void tenWritesWithinTheDebounceLeadToOneRequest() {
        pipeline_->start();
        for (int write = 1; write <= 10; ++write) {
            pipeline_->drop(QStringLiteral("a.pdf"), QByteArray(write, 'x'));
            letTimePass(20);
        }
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{QByteArray(10, 'x')});
    }

    void emptyFileIsRefusedUntilSomethingIsWritten() {
        pipeline_->start();
        pipeline_->drop(QStringLiteral("a.pdf"), "");
        letTimePass(longEnoughToBeTakenIn);
        QVERIFY(pipeline_->receipts().isEmpty());
        pipeline_->drop(QStringLiteral("a.pdf"), "content");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void emptyFileIsRefusedByTheInitialScan() {
        pipeline_->drop(QStringLiteral("a.pdf"), "");
        pipeline_->start();
        letTimePass(longEnoughToBeTakenIn);
        QVERIFY(pipeline_->receipts().isEmpty());
    }

    void fileThatGrowsDuringTheWaitIsNeverSentInPart() {
        pipeline_->drop(QStringLiteral("a.pdf"), "first half,");
        pipeline_->start(); // the initial scan begins its wait at once
        letTimePass(250);
        QFile file(pipeline_->path(QStringLiteral("a.pdf")));
        QVERIFY(file.open(QIODevice::Append));
        file.write(" second half");
        file.close();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"first half, second half"});
    }

    void vanishedFileIsForgotten() {
        pipeline_->start();
        QFile::remove(pipeline_->drop(QStringLiteral("a.pdf")));
        QFile::remove(pipeline_->drop(QStringLiteral("b.pdf")));
        letTimePass(500);
        pipeline_->drop(QStringLiteral("b.pdf"), "again");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"again"});
    }

    void archivesAreLeftAlone_data() {
        QTest::addColumn<QString>("archive");
        QTest::addColumn<bool>("isConfigured");
        QTest::newRow("default archive") << QStringLiteral("Receipt Archive/2025-03-03") << false;
        QTest::newRow("configured") << QStringLiteral("Done") << true;
        QTest::newRow("configured with a slash") << QStringLiteral("Done/") << true;
        QTest::newRow("configured with two slashes") << QStringLiteral("Done//") << true;
        QTest::newRow("configured with a detour") << QStringLiteral("x/../Done") << true;
    }
    void archivesAreLeftAlone() {
        QFETCH(QString, archive);
        QFETCH(bool, isConfigured);
        const QString folder = QDir::cleanPath(archive);
        pipeline_->drop(folder + QStringLiteral("/existing.pdf"));
        pipeline_->drop(folder.section(u'/', 0, 0) + QStringLiteral("-not/existing.pdf"), "neighbour");
        pipeline_->start();
        if (isConfigured) {
            pipeline_->settings->setArchiveFolderPath(pipeline_->path(archive));
        }
        pipeline_->drop(folder + QStringLiteral("/new.pdf"));
        pipeline_->drop(folder + QStringLiteral("/deep/new.pdf"));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"neighbour"});
    }

    void initialScanSkipsWhatIsHiddenAndDescendsElsewhere() {
        pipeline_->drop(QStringLiteral(".hidden.pdf"), "hidden");
        pipeline_->drop(QStringLiteral(".folder/a.pdf"), "hidden");
        pipeline_->drop(QStringLiteral("one/two/a.pdf"), "found");
        QFile::link(pipeline_->path(QStringLiteral("one/two/a.pdf")),
                    pipeline_->path(QStringLiteral("link.pdf")));
        QFile::link(pipeline_->path(QStringLiteral("one")), pipeline_->path(QStringLiteral("linked")));
        pipeline_->start();
        QVERIFY(waitUntil([this] { return pipeline_->receipts().size() == 2; }));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"found"});
        QCOMPARE(pipeline_->listedNames(), (QStringList{finalName, QStringLiteral("link.pdf")}));
    }

    void initialScanTakesFilesInOneAfterTheOther() {
        int underWay = 0;
        int most = 0;
        pipeline_->server.setScript([&](const HttpRequest &) {
            most = std::max(most, ++underWay);
            QTimer::singleShot(50, pipeline_->appState.get(), [&underWay] { --underWay; });
            HttpReply reply = answering("{}");
            reply.delay = milliseconds(60);
            return reply;
        });
        for (int index = 0; index < 4; ++index) {
            pipeline_->drop(QString::number(index) + QStringLiteral(".pdf"));
        }
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(4, ReceiptStatus::done));
        QCOMPARE(most, 1);
        QVERIFY(waitUntil([&] { return underWay == 0; }));
    }

    void filesThatArriveTogetherAreUnderWayTogether() {
        pipeline_->start();
        HttpReply slow = answering("{}");
        slow.delay = milliseconds(1000);
        pipeline_->server.setScript([slow](const HttpRequest &) { return slow; });
        for (int index = 0; index < 12; ++index) {
            pipeline_->drop(QString::number(index) + QStringLiteral(".pdf"));
        }
        QVERIFY(waitUntil([&] { return pipeline_->server.requests().size() == 12; }));
        QVERIFY(pipeline_->waitForRows(12, ReceiptStatus::done));
        const auto &requests = pipeline_->server.requests();
        QVERIFY(requests.last().arrivedAt - requests.first().arrivedAt < milliseconds(500));
    }

    void fileToldByScanAndEventIsAdmittedOnce() {
        pipeline_->drop(QStringLiteral("a.pdf"));
        pipeline_->start();
        letTimePass(100);
        pipeline_->drop(QStringLiteral("a.pdf"));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->server.requests().size(), 1);
        QCOMPARE(pipeline_->receipts().size(), 1);
    }

    void clearedPathIsNeverTakenInAgain() {
        pipeline_->server.setScript([](const HttpRequest &) {
            return HttpReply{.status = 500, .body = {}, .headers = {}}; // keeps the name
        });
        pipeline_->drop(QStringLiteral("a.pdf"));
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        pipeline_->store->clearAll();
        pipeline_->server.forgetRequests();
        pipeline_->drop(QStringLiteral("a.pdf"), "changed");
        letTimePass(longEnoughToBeTakenIn);
        pipeline_->start();
        letTimePass(longEnoughToBeTakenIn);
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(pipeline_->server.requests().isEmpty());
    }

    void changingTheFolderScansTheNewOneAndForgetsTheOld() {
        pipeline_->start();
        const QString other = pipeline_->path(QString()) + QStringLiteral("../other");
        writeFile(other + QStringLiteral("/existing.pdf"), "in the new folder");
        pipeline_->appState->startWatching(QDir::cleanPath(other));
        pipeline_->drop(QStringLiteral("a.pdf"), "in the old folder");
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        writeFile(other + QStringLiteral("/later.pdf"), "later");
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), (QList<QByteArray>{"in the new folder", "later"}));
        QDir(QDir::cleanPath(other)).removeRecursively();
    }

    void folderSpelledWithASlashAtTheEndIsTheSame() {
        pipeline_->start();
        pipeline_->appState->startWatching(pipeline_->path(QString()));
        pipeline_->drop(QStringLiteral("a.pdf"));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QVERIFY(!pipeline_->receipts().first().filePath.contains(u"//"));
    }

    void withoutAFolderTheRunningWatchGoesOn() {
        pipeline_->start();
        pipeline_->settings->setWatchFolderPath(QString());
        pipeline_->appState->startWatchingIfConfigured();
        pipeline_->settings->setWatchFolderPath(std::nullopt);
        pipeline_->appState->startWatchingIfConfigured();
        pipeline_->drop(QStringLiteral("a.pdf"));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void missingFolderIsNoFailure() {
        QDir(pipeline_->path(QString())).removeRecursively();
        pipeline_->start();
        letTimePass(200);
        QVERIFY(!pipeline_->appState->lastError());
        pipeline_->drop(QStringLiteral("a.pdf"));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void folderNamedLikeAReceiptBecomesAFailedRow() {
        pipeline_->start();
        QDir().mkpath(pipeline_->path(QStringLiteral("folder.pdf")));
        if (QFileInfo(pipeline_->path(QStringLiteral("folder.pdf"))).size() == 0) {
            QSKIP("Folders have no size on this file system");
        }
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QVERIFY(pipeline_->receipts().first().error->startsWith(u"Failed to read file: "));
    }

    void linkNamedLikeAReceiptBecomesAFailedRow_data() {
        QTest::addColumn<bool>("isDangling");
        QTest::addColumn<bool>("isThereBefore");
        QTest::newRow("arrives") << false << false;
        QTest::newRow("lies there") << false << true;
        QTest::newRow("arrives, to nothing") << true << false;
        QTest::newRow("lies there, to nothing") << true << true;
    }
    void linkNamedLikeAReceiptBecomesAFailedRow() {
        QFETCH(bool, isDangling);
        QFETCH(bool, isThereBefore);
        const QString secret = surroundings_.home.path(QStringLiteral("id_rsa"));
        writeFile(secret, "a key");
        const auto makeLink = [&] {
            QFile::link(isDangling ? QStringLiteral("/nowhere/a.pdf") : secret,
                        pipeline_->path(QStringLiteral("x.pdf")));
        };
        if (isThereBefore) {
            makeLink();
        }
        pipeline_->start();
        if (!isThereBefore) {
            makeLink();
        }
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().error,
                 QStringLiteral("The file is a link. Put the file itself into the folder to scan it."));
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QVERIFY(pipeline_->server.requests().isEmpty());

        pipeline_->drop(QStringLiteral("y.pdf"), "itself");
        QVERIFY(QFile::remove(pipeline_->path(QStringLiteral("x.pdf"))));
        pipeline_->drop(QStringLiteral("x.pdf"), "itself");
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
    }

    void fileExchangedAfterItsIntakeIsNotSent_data() {
        QTest::addColumn<int>("exchange");
        QTest::newRow("for a link") << 0;
        QTest::newRow("for a pipe") << 1;
        QTest::newRow("for another file") << 2;
        QTest::newRow("its folder for a link") << 3;
        QTest::newRow("for a giant") << 4;
    }
    void fileExchangedAfterItsIntakeIsNotSent() {
        QFETCH(int, exchange);
        const QString secret = surroundings_.home.path(QStringLiteral("secret/a.pdf"));
        writeFile(secret, "a receipt");
        pipeline_->start();
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [&](const auto &change) {
            if (change.kind != ReceiptsChange::Kind::inserted || pipeline_->receipts().size() != 1) {
                return;
            }
            const QString path = pipeline_->receipts().first().filePath;
            if (exchange != 4) {
                QVERIFY(QFile::rename(path, pipeline_->path(QStringLiteral("kept"))));
            }
            switch (exchange) {
            case 0:
                QVERIFY(QFile::link(secret, path));
                return;
            case 1:
                QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
                return;
            case 2:
                writeFile(path, "a receipt");
                return;
            case 3:
                QVERIFY(QDir().rmdir(QFileInfo(path).path()));
                QVERIFY(QFile::link(QFileInfo(secret).path(), QFileInfo(path).path()));
                return;
            default:
                QVERIFY(QFile::resize(path, 3LL << 30));
            }
        });
        pipeline_->drop(QStringLiteral("sub/a.pdf"));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QVERIFY2(pipeline_->receipts().first().error->startsWith(u"Failed to read file: "),
                 qPrintable(*pipeline_->receipts().first().error));
        QVERIFY(pipeline_->server.requests().isEmpty());
        pipeline_->drop(QStringLiteral("next.pdf"), "the next");
        QVERIFY(waitUntil([this] { return !pipeline_->server.requests().isEmpty(); }));
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{"the next"});
        QVERIFY(waitUntil([this] { return pipeline_->listedNames().contains(finalName); }));
    }

    void pipesInPlaceOfFilesDoNotStopTheScanning() {
        pipeline_->start();
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [&](const auto &change) {
            if (change.kind == ReceiptsChange::Kind::inserted) {
                const QString path = pipeline_->receipts().at(change.to).filePath;
                if (path.contains(u"pipe")) {
                    QVERIFY(QFile::remove(path));
                    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
                }
            }
        });
        const int pipes = QThread::idealThreadCount() + 1;
        for (int pipe = 0; pipe < pipes; ++pipe) {
            pipeline_->drop(QStringLiteral("pipe-%1.pdf").arg(pipe));
        }
        QVERIFY(pipeline_->waitForRows(pipes, ReceiptStatus::error));
        pipeline_->drop(QStringLiteral("a.pdf"));
        QVERIFY(waitUntil([this] { return pipeline_->listedNames().contains(finalName); }));
    }

    void giantBecomesAFailedRow_data() {
        QTest::addColumn<qint64>("size");
        QTest::newRow("a byte too much") << qint64(100'000'001);
        QTest::newRow("3 GiB") << (qint64(3) << 30);
        QTest::newRow("1 TiB") << (qint64(1) << 40);
    }
    void giantBecomesAFailedRow() {
        QFETCH(qint64, size);
        const QString path = pipeline_->drop(QStringLiteral("a.pdf"));
        if (!QFile::resize(path, size)) {
            QSKIP("This file system has no files of this size");
        }
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().error, QStringLiteral("The file is larger than 100 MB."));
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().error, QStringLiteral("The file is larger than 100 MB."));
        QVERIFY(pipeline_->server.requests().isEmpty());
    }

    // A file that is taken in needs memory for its request.
    void fileForWhichThereIsNoMemoryBecomesAFailedRow() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("Programs with the sanitizer cannot be limited.");
#else
        pipeline_->start();
        rlimit usual{};
        QCOMPARE(::getrlimit(RLIMIT_DATA, &usual), 0);
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [&](const auto &change) {
            if (change.kind == ReceiptsChange::Kind::inserted) {
                constexpr rlim_t enoughForTheRest = 60'000'000;
                const rlimit little{dataOfThisProcess() + enoughForTheRest, usual.rlim_max};
                QCOMPARE(::setrlimit(RLIMIT_DATA, &little), 0);
            }
        });
        const QString path = pipeline_->path(QStringLiteral("a.pdf"));
        QVERIFY(QFile(path).open(QIODevice::WriteOnly) && QFile::resize(path, 99'000'000));
        const bool hasFailed = pipeline_->waitForRows(1, ReceiptStatus::error);
        ::setrlimit(RLIMIT_DATA, &usual);
        QVERIFY(hasFailed);
        QCOMPARE(pipeline_->receipts().first().error,
                 QStringLiteral("There is not enough memory for this file."));
#endif
    }

    void movedInTreeIsTakenInWhole() {
        pipeline_->start();
        const QString outside = surroundings_.home.path(QStringLiteral("outside"));
        constexpr int files = 15;
        for (int index = 0; index < files; ++index) {
            writeFile(outside + QStringLiteral("/sub%1/receipt.pdf").arg(index), QByteArray::number(index));
        }
        QVERIFY(QDir().rename(outside, pipeline_->path(QStringLiteral("moved"))));
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
        int underWay = 0;
        int most = 0;
        pipeline_->server.setScript([&](const HttpRequest &) {
            most = std::max(most, ++underWay);
            QTimer::singleShot(50, pipeline_->appState.get(), [&underWay] { --underWay; });
            HttpReply reply = answering("{}");
            reply.delay = milliseconds(60);
            return reply;
        });
        pipeline_->start();
        const QString outside = surroundings_.home.path(QStringLiteral("outside-again"));
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
        QVERIFY(QDir().mkpath(joinedPath(outside, QStringLiteral("folder.pdf"))));
        QVERIFY(QDir().rename(outside, isMovedIn ? pipeline_->path(QStringLiteral("moved")) : watched));
        QVERIFY(waitUntil([this] { return pipeline_->receipts().size() == 4; }));
        QVERIFY(pipeline_->waitForRows(4, ReceiptStatus::done));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>(4, "found"));
        QCOMPARE(pipeline_->receipts().size(), 4);
        QCOMPARE(most, 1);
        QVERIFY(waitUntil([&] { return underWay == 0; }));
    }

    void eventsOfARenamingAreItsOwn() {
        pipeline_->start();
        // The row does not keep the new path, so only the renaming itself keeps the file from being read
        // again.
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [this] {
            Receipt receipt = pipeline_->receipts().first();
            if (receipt.fileName == finalName && receipt.filePath.endsWith(finalName)) {
                receipt.filePath = QStringLiteral("/elsewhere");
                QTimer::singleShot(0, this, [this, receipt] { pipeline_->store->update(receipt); });
            }
        });
        pipeline_->drop(QStringLiteral("a.pdf"));
        QVERIFY(waitUntil([this] {
            return !pipeline_->receipts().isEmpty() &&
                   pipeline_->receipts().first().filePath == QStringLiteral("/elsewhere");
        }));
        letTimePass(longEnoughToBeTakenIn);
        QCOMPARE(pipeline_->receipts().size(), 1);
        QVERIFY(QFile::exists(pipeline_->path(finalName)));
    }

    void exclusionOfARenamedPathLastsFiveSeconds() {
        RenamedPaths renamed;
        const auto start = std::chrono::steady_clock::now();
        const QString path = QStringLiteral("/w/a.pdf");
        renamed.insert(path, start);
        QVERIFY(renamed.contains(path, start + milliseconds(4999)));
        QVERIFY(!renamed.contains(path, start + milliseconds(5000)));
        QVERIFY(!renamed.contains(QStringLiteral("/w/A.pdf"), start));
        renamed.insert(path, start + milliseconds(3000)); // counts anew
        QVERIFY(renamed.contains(path, start + milliseconds(7999)));
    }

private:
    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int intake_test(int argc, char **argv) {
    return runTest<QApplication, IntakeTest>(argc, argv);
}
#include "intake_test.moc"
