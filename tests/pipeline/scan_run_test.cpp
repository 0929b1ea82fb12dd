#include "pipeline_under_test.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

HttpReply failing(int status, const QByteArray &body = {}) {
    return HttpReply{.status = status, .body = body, .headers = {}};
}

} // namespace

class ScanRunTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void withoutAKeyNothingIsSent_data() {
        QTest::addColumn<bool>("isStored");
        QTest::newRow("no key") << false;
        QTest::newRow("empty key") << true;
    }
    void withoutAKeyNothingIsSent() {
        QFETCH(bool, isStored);
        PrivateSession::clearKey();
        if (isStored) {
            PrivateSession::storeKey("");
        }
        const QString path = pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().error,
                 u"API key not configured. Set your Gemini API key in Settings."_s);
        QCOMPARE(pipeline_->receipts().first().filePath, path);
        QVERIFY(QFileInfo::exists(path));
        QVERIFY(pipeline_->server.requests().isEmpty());
        QVERIFY(!pipeline_->appState->lastError());

        pipeline_->settings->setAPIKey(u"AIza-late-key"_s);
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->listedNames(), QStringList{finalName});
        QVERIFY(pipeline_->server.requests().first().target.endsWith("?key=AIza-late-key"));
    }

    void endInTheMiddleOfATaskDoesNoHarm_data() {
        QTest::addColumn<int>("time");
        QTest::newRow("while the folder is read") << 0;
        QTest::newRow("while the size is watched") << 250;
        QTest::newRow("while the service works") << 900;
    }
    void endInTheMiddleOfATaskDoesNoHarm() {
        QFETCH(int, time);
        pipeline_->server.setScript([](const HttpRequest &) {
            HttpReply reply = answering("{}");
            reply.delay = std::chrono::milliseconds(500);
            return reply;
        });
        const QString path = pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        letTimePass(time);
        pipeline_->appState.reset();
        letTimePass(1500); // everything that was under way comes to its end
        QVERIFY(QFileInfo::exists(path));
    }

    void modelIsReadWhenTheRunStarts() {
        pipeline_->start();
        pipeline_->settings->setModel(u"other-model"_s);
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QVERIFY(pipeline_->server.requests().first().target.startsWith(
            "/v1beta/models/other-model:generateContent?"));
    }

    void everyStepIsVisibleInTheListAtOnce() {
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QStringList steps;
        connect(pipeline_->store.get(), &ReceiptStore::receiptsChanged, this, [&] {
            const Receipt &receipt = pipeline_->receipts().first();
            steps.append(rawValue(receipt.status) + u' ' + receipt.fileName);
        });
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(steps, (QStringList{u"processing a.pdf"_s, u"done a.pdf"_s, u"done "_s + finalName}));
    }

    void resultIsCopiedIntoTheReceipt() {
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        const Receipt receipt = pipeline_->receipts().first();
        QCOMPARE(receipt.date, u"2024-05-01"_s);
        QCOMPARE(receipt.time, u"12:30"_s);
        QCOMPARE(receipt.amount, 23.5);
        QCOMPARE(receipt.currency, u"USD"_s);
        QCOMPARE(receipt.location, u"Dockside Deli"_s);
        QCOMPARE(receipt.category, u"lunch"_s);
        QCOMPARE(receipt.summary, u"Lunch."_s);
        QVERIFY(!receipt.error);
        QCOMPARE(receipt.filePath, pipeline_->path(finalName));
        QVERIFY(QFileInfo::exists(receipt.filePath));
        QCOMPARE(ReceiptStore().receipts(), pipeline_->receipts());
    }

    void correctionBeforeTheRetryStaysAlsoInAnOldCopy() {
        pipeline_->server.setScript([](const HttpRequest &) { return failing(429, "slow down"); });
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        const Receipt old = pipeline_->receipts().first();
        Receipt corrected = old;
        corrected.summary = u"corrected"_s;
        pipeline_->store->update(corrected);
        pipeline_->server.forgetRequests();
        pipeline_->appState->retry(old);
        QCOMPARE(pipeline_->receipts().first().summary, u"corrected"_s);
        QVERIFY(waitUntil([this] { return pipeline_->server.requests().size() == 1; }));
        corrected = pipeline_->receipts().first();
        corrected.summary = u"corrected once more"_s;
        pipeline_->store->update(corrected);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().summary, u"corrected once more"_s);
    }

    void failedScanKeepsNameAndPath() {
        pipeline_->server.setScript([](const HttpRequest &) { return failing(429, "slow down"); });
        const QString path = pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().error, u"Gemini API error: 429 — slow down"_s);
        QCOMPARE(pipeline_->receipts().first().filePath, path);
        QCOMPARE(pipeline_->listedNames(), QStringList{u"a.pdf"_s});
        QVERIFY(QFileInfo::exists(path));
    }

    void retryShowsProcessingWithoutTheOldText() {
        pipeline_->server.setScript([](const HttpRequest &) { return failing(500); });
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        pipeline_->appState->retry(pipeline_->receipts().first());
        QCOMPARE(pipeline_->receipts().first().status, ReceiptStatus::processing);
        QVERIFY(!pipeline_->receipts().first().error);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QCOMPARE(pipeline_->receipts().first().error, u"Gemini API error: 500"_s);
    }

    void absentFieldsClearThoseOfAnEarlierRun() {
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        pipeline_->server.setScript([](const HttpRequest &) { return answering("{}"); });
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(waitUntil([&] { return pipeline_->server.requests().size() == 2; }));
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        const Receipt receipt = pipeline_->receipts().first();
        QVERIFY(!receipt.date && !receipt.time && !receipt.amount && !receipt.currency && !receipt.location);
        QCOMPARE(receipt.category, u"misc"_s);
        QCOMPARE(receipt.fileName, u"Undated Misc.pdf"_s);
    }

    void eventsOfTheRenamedFileMakeNoSecondReceipt() {
        pipeline_->start();
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        pipeline_->drop(finalName, "touched at once");
        letTimePass(5500); // the exclusion has ended, the list still knows the path
        pipeline_->drop(finalName, "touched later");
        letTimePass(1500);
        QCOMPARE(pipeline_->receipts().size(), 1);
        QCOMPARE(pipeline_->server.requests().size(), 1);
    }

    void twoReceiptsOfOneNameAreNumbered() {
        pipeline_->drop(u"a.pdf"_s, "a");
        pipeline_->drop(u"b.pdf"_s, "b");
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        QCOMPARE(pipeline_->listedNames(),
                 (QStringList{u"2024-05-01 Lunch - Dockside Deli $23.50 (2).pdf"_s, finalName}));
    }

    void renameThatFailsIsNoFailure() {
        pipeline_->server.setScript([](const HttpRequest &) {
            return answering("{\"location\": \"" + QByteArray(300, 'x') + "\"}");
        });
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->listedNames(), QStringList{u"a.pdf"_s});
        QVERIFY(!pipeline_->receipts().first().error);
        QVERIFY(!pipeline_->appState->lastError());
    }

    void receiptClearedDuringItsScanKeepsItsNameAndStaysAway() {
        pipeline_->server.holdAnswers();
        const QString path = pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(waitUntil([&] { return pipeline_->server.requests().size() == 1; }));
        pipeline_->store->clearAll();
        pipeline_->server.letAnswersGo();
        letTimePass(600);
        QVERIFY(pipeline_->receipts().isEmpty());
        QVERIFY(QFileInfo::exists(path));
        pipeline_->start();
        letTimePass(1500);
        QVERIFY(pipeline_->receipts().isEmpty());
    }

private:
    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int scan_run_test(int argc, char **argv) {
    return runTest<QApplication, ScanRunTest>(argc, argv);
}
#include "scan_run_test.moc"
