#include "pipeline_under_test.h"
#include "support/host_stalls.h"
#include "support/striped_pdf.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace fennick;
using namespace fennick::test;
using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::system_clock;

namespace {

// The longest span in which a running event loop served nothing.
class LongestStall {
public:
    LongestStall() {
        QObject::connect(&ticker_, &QTimer::timeout, &ticker_,
                         [this] { longest_ = std::max(longest_, sinceTick_.restart()); });
        sinceTick_.start();
        ticker_.start(1);
    }

    qint64 milliseconds() const { return longest_; }

private:
    QTimer ticker_;
    QElapsedTimer sinceTick_;
    qint64 longest_ = 0;
};

} // namespace

class TimingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void requestFollowsTheLastWriteByDebounceAndStabilityWait_data() {
        QTest::addColumn<int>("writes");
        QTest::addColumn<int>("pause");
        QTest::newRow("one write") << 1 << 0;
        QTest::newRow("ten writes, 20 ms apart") << 10 << 20;
        QTest::newRow("growing for 3 s, 100 ms apart") << 30 << 100;
        QTest::newRow("growing, 250 ms apart") << 8 << 250;
        QTest::newRow("growing, 400 ms apart") << 6 << 400;
        QTest::newRow("growing, 700 ms apart") << 4 << 700;
    }
    void requestFollowsTheLastWriteByDebounceAndStabilityWait() {
        QFETCH(int, writes);
        QFETCH(int, pause);
        pipeline_->start();
        const HostStalls stalls;
        QFile file(pipeline_->path(QStringLiteral("a.pdf")));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        system_clock::time_point lastWrite;
        for (int write = 0; write < writes; ++write) {
            letTimePass(write == 0 ? 0 : pause);
            file.write("x");
            lastWrite = system_clock::now();
        }
        file.close();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->sentDocuments(), QList<QByteArray>{QByteArray(writes, 'x')});
        const auto delay =
            duration_cast<milliseconds>(pipeline_->server.requests().first().arrivedAt - lastWrite);
        QVERIFY2(delay >= milliseconds(800) && delay <= milliseconds(850) + stalls.longest(),
                 qPrintable(QStringLiteral("%1 ms").arg(delay.count())));
    }

    void eventLoopKeepsTickingWhileTwentyPagesAreDelivered() {
        pipeline_->start();
        pipeline_->settings->setAddToPhotos(true);
        pipeline_->drop(QStringLiteral("a.pdf"), stripedPdf(20));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        const HostStalls host;
        const LongestStall stall;
        QVERIFY(waitUntil([this] { return pipeline_->receipts().first().addedToPhotos; }, 30000));
        QVERIFY2(stall.milliseconds() <= 50 + host.longest().count(),
                 qPrintable(QStringLiteral("stalled for %1 ms").arg(stall.milliseconds())));
    }

    void eventLoopKeepsTickingWhileALargeFileIsSent() {
        pipeline_->start();
        pipeline_->drop(QStringLiteral("a.pdf"), QByteArray(40 * 1000 * 1000, 'x'));
        QVERIFY(waitUntil([this] { return pipeline_->receipts().size() == 1; }));
        const HostStalls host;
        const LongestStall stall; // shared with the server, which copies the request
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QVERIFY2(stall.milliseconds() <= 100 + host.longest().count(),
                 qPrintable(QStringLiteral("stalled for %1 ms").arg(stall.milliseconds())));
    }

private:
    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

QTEST_MAIN(TimingTest)
#include "timing_test.moc"
