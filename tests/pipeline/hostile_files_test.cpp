#include "pipeline_under_test.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <sys/resource.h>
#include <sys/stat.h>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// Bytes, as the limit counts them.
rlim_t dataOfThisProcess() {
    const QByteArray status = readFile(u"/proc/self/status"_s);
    const qsizetype start = status.indexOf("VmData:") + 7;
    return status.mid(start, status.indexOf("kB", start) - start).trimmed().toULongLong() * 1024;
}
#endif

} // namespace

// What lies in the watched folder or comes to a receipt's path and must not be read: it becomes a failed row,
// and the others are read all the same.
class HostileFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void folderNamedLikeAReceiptBecomesAFailedRow() {
        pipeline_->start();
        QDir().mkpath(pipeline_->path(u"folder.pdf"_s));
        if (QFileInfo(pipeline_->path(u"folder.pdf"_s)).size() == 0) {
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
        const QString secret = surroundings_.home.path(u"id_rsa"_s);
        writeFile(secret, "a key");
        const auto makeLink = [&] {
            QFile::link(isDangling ? u"/nowhere/a.pdf"_s : secret, pipeline_->path(u"x.pdf"_s));
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
                 u"The file is a link. Put the file itself into the folder to scan it."_s);
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QVERIFY(pipeline_->server.requests().isEmpty());

        pipeline_->drop(u"y.pdf"_s, "itself");
        QVERIFY(QFile::remove(pipeline_->path(u"x.pdf"_s)));
        pipeline_->drop(u"x.pdf"_s, "itself");
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
        const QString secret = surroundings_.home.path(u"secret/a.pdf"_s);
        writeFile(secret, "a receipt");
        pipeline_->start();
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [&](const auto &change) {
            if (change.kind != ReceiptsChange::Kind::inserted || pipeline_->receipts().size() != 1) {
                return;
            }
            const QString path = pipeline_->receipts().first().filePath;
            if (exchange != 4) {
                QVERIFY(QFile::rename(path, pipeline_->path(u"kept"_s)));
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
        pipeline_->drop(u"sub/a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QVERIFY2(pipeline_->receipts().first().error->startsWith(u"Failed to read file: "),
                 qPrintable(*pipeline_->receipts().first().error));
        QVERIFY(pipeline_->server.requests().isEmpty());
        pipeline_->drop(u"next.pdf"_s, "the next");
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
            pipeline_->drop(u"pipe-%1.pdf"_s.arg(pipe));
        }
        QVERIFY(pipeline_->waitForRows(pipes, ReceiptStatus::error));
        pipeline_->drop(u"a.pdf"_s);
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
        const QString path = pipeline_->drop(u"a.pdf"_s);
        if (!QFile::resize(path, size)) {
            QSKIP("This file system has no files of this size");
        }
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().error, u"The file is larger than 100 MB."_s);
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().error, u"The file is larger than 100 MB."_s);
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
        const QString path = pipeline_->path(u"a.pdf"_s);
        QVERIFY(QFile(path).open(QIODevice::WriteOnly) && QFile::resize(path, 99'000'000));
        const bool hasFailed = pipeline_->waitForRows(1, ReceiptStatus::error);
        ::setrlimit(RLIMIT_DATA, &usual);
        QVERIFY(hasFailed);
        QCOMPARE(pipeline_->receipts().first().error, u"There is not enough memory for this file."_s);
#endif
    }

private:
    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int hostile_files_test(int argc, char **argv) {
    return runTest<QApplication, HostileFilesTest>(argc, argv);
}
#include "hostile_files_test.moc"
