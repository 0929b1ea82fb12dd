#include "pipeline_under_test.h"
#include "support/test_program.h"

#include <QApplication>
#include <QFile>

#include <chrono>
#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using std::chrono::milliseconds;
using std::chrono::system_clock;

// A file is sent once, whole, and never earlier than its quiet and its unchanging size allow.
class FirstRequestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void growingFileIsSentOnceAndWholeAfterItsLastWrite_data() {
        QTest::addColumn<int>("writes");
        QTest::addColumn<int>("pause");
        QTest::newRow("one write") << 1 << 0;
        QTest::newRow("ten writes, 20 ms apart") << 10 << 20;
        QTest::newRow("growing for 3 s, 100 ms apart") << 30 << 100;
        QTest::newRow("growing, 250 ms apart") << 8 << 250;
        QTest::newRow("growing, 400 ms apart") << 6 << 400;
        QTest::newRow("growing, 700 ms apart") << 4 << 700;
    }
    void growingFileIsSentOnceAndWholeAfterItsLastWrite() {
        QFETCH(int, writes);
        QFETCH(int, pause);
        // A busy machine may hold the test's own writes back, and a file that is left alone for 800 ms is
        // sent as it is.
        while (!growsWithoutALongPause(writes, pause)) {
            pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        }
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{QByteArray(writes, 'x')});
        QVERIFY(pipeline_->server.requests().first().arrivedAt - lastWrite_ >= fewest);
    }

private:
    static constexpr milliseconds fewest{800};

    // Writes a new file bit by bit; returns whether no two writes were as far apart as `fewest`.
    bool growsWithoutALongPause(int writes, int pause) {
        pipeline_->start();
        QFile file(pipeline_->path(u"a.pdf"_s));
        file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        file.write("x");
        lastWrite_ = system_clock::now();
        for (int write = 1; write < writes; ++write) {
            letTimePass(pause);
            file.write("x");
            const auto now = system_clock::now();
            if (now - lastWrite_ >= fewest) {
                return false;
            }
            lastWrite_ = now;
        }
        return true;
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    system_clock::time_point lastWrite_;
};

int first_request_test(int argc, char **argv) {
    return runTest<QApplication, FirstRequestTest>(argc, argv);
}
#include "first_request_test.moc"
