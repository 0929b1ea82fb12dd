#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QCoroSignal>
#include <QElapsedTimer>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// A service whose outcomes are known beforehand. Each scan ends when the test says so.
class StagedScans : public QObject {
    Q_OBJECT

public:
    explicit StagedScans(ReceiptStore *store)
        : store_(store) {}

    QCoro::Task<ScanOutcome> scan(QString id) {
        begun.append(id);
        beginnings.append(clock_.elapsed());
        setStatus(id, ReceiptStatus::processing);
        if (isHeld) {
            co_await qCoro(this, &StagedScans::letGo);
        }
        const ScanOutcome outcome = outcomes.isEmpty() ? ScanOutcome::done : outcomes.takeFirst();
        setStatus(id, outcome == ScanOutcome::done ? ReceiptStatus::done : ReceiptStatus::error);
        co_return outcome;
    }

    QStringList begun;
    QList<qint64> beginnings; // in milliseconds
    QList<ScanOutcome> outcomes;
    bool isHeld = false;

Q_SIGNALS:
    void letGo();

private:
    void setStatus(const QString &id, ReceiptStatus status) {
        if (auto receipt = store_->receipt(id)) {
            receipt->status = status;
            store_->update(*receipt);
        }
    }

    ReceiptStore *store_;
    QElapsedTimer clock_ = [] {
        QElapsedTimer clock;
        clock.start();
        return clock;
    }();
};

class RetryAllTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        store_ = std::make_unique<ReceiptStore>();
        scans_ = std::make_unique<StagedScans>(store_.get());
        tasks_ = std::make_unique<Tasks>(&lastError_);
        retries_ = std::make_unique<RetryAll>(
            store_.get(), [this](QString id) { return scans_->scan(id); }, tasks_.get(),
            RetryPauses{.first = std::chrono::milliseconds(20), .longest = std::chrono::milliseconds(50)});
    }
    void cleanup() {
        retries_.reset();
        store_.reset();
        pipeline_.reset();
    }

    void scansAFewFailedReceiptsAtATime() {
        addFailed(10);
        store_->add(finishedReceipt(u"/w/done.pdf"_s));
        scans_->isHeld = true;
        retries_->addAllFailed();
        QCOMPARE(scans_->begun.size(), 4);
        QCOMPARE(retries_->totalCount(), 10);
        QCOMPARE(retries_->finishedCount(), 0);
        scans_->isHeld = false;
        Q_EMIT scans_->letGo();
        QVERIFY(waitUntil([this] { return !retries_->isUnderWay(); }));
        QCOMPARE(scans_->begun.size(), 10);
        QCOMPARE(statuses(ReceiptStatus::done), 11);
        QCOMPARE(retries_->totalCount(), 0);
    }

    void progressIsToldToTheEnd() {
        addFailed(2);
        QList<std::pair<int, int>> progress;
        connect(retries_.get(), &RetryAll::changed, this,
                [&] { progress.append({retries_->finishedCount(), retries_->totalCount()}); });
        retries_->addAllFailed();
        QVERIFY(waitUntil([this] { return !retries_->isUnderWay(); }));
        QCOMPARE(progress.last(), std::pair(0, 0));
        QVERIFY(std::ranges::all_of(progress, [](const auto &each) { return each.first <= each.second; }));
    }

    void pausesGrowWhileTheServiceWantsFewerRequests() {
        addFailed(1);
        using enum ScanOutcome;
        scans_->outcomes = {tooManyRequests, tooManyRequests, tooManyRequests, tooManyRequests, done};
        retries_->addAllFailed();
        QVERIFY(waitUntil([this] { return !retries_->isUnderWay(); }));
        QCOMPARE(scans_->begun.size(), 5);
        const QList<int> least{20, 40, 50, 50}; // twice as long each time, up to the longest
        for (qsizetype index = 0; index < least.size(); ++index) {
            const qint64 pause = scans_->beginnings[index + 1] - scans_->beginnings[index];
            QVERIFY2(pause >= least[index] - 1, qPrintable(QString::number(pause)));
        }
        QCOMPARE(statuses(ReceiptStatus::done), 1);
    }

    void afterARefusalOneAtATimeUntilAScanSucceeds() {
        addFailed(6);
        scans_->outcomes = {ScanOutcome::tooManyRequests};
        retries_->add({store_->receipts().first().id});
        scans_->isHeld = true;
        retries_->addAllFailed();
        QVERIFY(waitUntil([this] { return scans_->begun.size() == 2; }));
        letTimePass(100); // longer than any pause
        QCOMPARE(scans_->begun.size(), 2);
        Q_EMIT scans_->letGo();
        QVERIFY(waitUntil([this] { return scans_->begun.size() == 6; })); // four at once again
        scans_->isHeld = false;
        Q_EMIT scans_->letGo();
        QVERIFY(waitUntil([this] { return !retries_->isUnderWay(); }));
        QCOMPARE(statuses(ReceiptStatus::done), 6);
    }

    void givesUpIfTheServiceTakesNoRequestAtAll() {
        addFailed(3);
        scans_->outcomes = QList<ScanOutcome>(100, ScanOutcome::tooManyRequests);
        retries_->addAllFailed();
        QVERIFY(waitUntil([this] { return !retries_->isUnderWay(); }));
        QCOMPARE(scans_->begun.size(), 8);
        QCOMPARE(statuses(ReceiptStatus::error), 3);
    }

    void stopBeginsNoFurtherScan() {
        addFailed(10);
        scans_->isHeld = true;
        retries_->addAllFailed();
        retries_->stop();
        scans_->outcomes = {ScanOutcome::tooManyRequests};
        Q_EMIT scans_->letGo();
        QVERIFY(waitUntil([this] { return !retries_->isUnderWay(); }));
        letTimePass(100);
        QCOMPARE(scans_->begun.size(), 4);
        QCOMPARE(statuses(ReceiptStatus::error), 7);
        scans_->isHeld = false;
        retries_->addAllFailed(); // and it can be begun anew
        QVERIFY(waitUntil([this] { return statuses(ReceiptStatus::done) == 10; }));
    }

    void receiptThatChangesBeforeItsTurnIsLeftOut() {
        addFailed(6);
        scans_->isHeld = true;
        retries_->addAllFailed();
        QCOMPARE(scans_->begun.size(), 4);
        Receipt corrected = store_->receipts()[4];
        corrected.status = ReceiptStatus::done;
        corrected.summary = u"typed by hand"_s;
        store_->update(corrected);
        store_->remove({store_->receipts()[5].id});
        scans_->isHeld = false;
        Q_EMIT scans_->letGo();
        QVERIFY(waitUntil([this] { return !retries_->isUnderWay(); }));
        QCOMPARE(scans_->begun.size(), 4);
        QCOMPARE(store_->receipt(corrected.id), corrected);
    }

    void whatWaitsAlreadyIsNotAddedTwice() {
        addFailed(6);
        scans_->isHeld = true;
        retries_->addAllFailed();
        retries_->addAllFailed();
        retries_->add({store_->receipts().last().id});
        QCOMPARE(retries_->totalCount(), 6);
        scans_->isHeld = false;
        Q_EMIT scans_->letGo();
        QVERIFY(waitUntil([this] { return !retries_->isUnderWay(); }));
        QCOMPARE(scans_->begun.size(), 6);
    }

    void serviceHasFourRequestsAtOnce() {
        for (int number = 0; number < 9; ++number) {
            pipeline_->drop(u"%1.pdf"_s.arg(number), "receipt " + QByteArray::number(number));
        }
        PrivateSession::clearKey();
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(9, ReceiptStatus::error));
        PrivateSession::storeKey("AIza-test-key");
        pipeline_->server.holdAnswers();
        pipeline_->appState->retryAll()->addAllFailed();
        QVERIFY(waitUntil([this] { return pipeline_->server.requests().size() == 4; }));
        letTimePass(300);
        QCOMPARE(pipeline_->server.requests().size(), 4);
        pipeline_->server.letAnswersGo();
        QVERIFY(pipeline_->waitForRows(9, ReceiptStatus::done));
        QCOMPARE(pipeline_->server.requests().size(), 9);
    }

    void removedReceiptDoesNotComeBackWithItsAnswer() {
        pipeline_->server.holdAnswers();
        pipeline_->start();
        const QString path = pipeline_->drop(u"a.pdf"_s);
        QVERIFY(waitUntil([this] { return pipeline_->server.requests().size() == 1; }));
        pipeline_->store->remove({pipeline_->receipts().first().id});
        pipeline_->server.letAnswersGo();
        letTimePass(1500);
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(QFile::exists(path)); // under its old name
        writeFile(path, "changed");
        letTimePass(1500);
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(pipeline_->server.requests().size(), 1);
    }

private:
    void addFailed(int count) {
        for (int number = 0; number < count; ++number) {
            Receipt receipt = finishedReceipt(u"/w/%1.pdf"_s.arg(number));
            receipt.scannedAt = u"2025-01-01T00:00:01Z"_s; // in the order of their arrival
            receipt.status = ReceiptStatus::error;
            store_->add(receipt);
        }
    }

    qsizetype statuses(ReceiptStatus status) const {
        return std::ranges::count_if(store_->receipts(),
                                     [status](const Receipt &receipt) { return receipt.status == status; });
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    LastError lastError_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<StagedScans> scans_;
    std::unique_ptr<Tasks> tasks_;
    std::unique_ptr<RetryAll> retries_;
};

int retry_all_test(int argc, char **argv) {
    return runTest<QApplication, RetryAllTest>(argc, argv);
}
#include "retry_all_test.moc"
