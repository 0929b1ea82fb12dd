#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QFileInfo>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class UndoRetryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->start();
    }
    void cleanup() { pipeline_.reset(); }

    void failedReceiptIsAsItWasBeforeTheRetry() {
        const Receipt before = list("a.pdf", ReceiptStatus::error);
        pipeline_->appState->retry(before);
        QVERIFY(waitUntil([this] { return only().fileName == finalName; }));
        const Receipt after = only();
        QCOMPARE(history().stack()->undoText(), u"Retry of “Mario's Cafe”"_s);
        history().undo();
        QCOMPARE(only(), before);
        QVERIFY(QFileInfo::exists(before.filePath));
        history().redo();
        QCOMPARE(only(), after);
        QVERIFY(QFileInfo::exists(after.filePath));
        letTimePass(1500);
        QCOMPARE(pipeline_->server.requests().size(), 1); // never read again
    }

    void finishedReceiptThatWasReadAgainKeepsItsCorrection() {
        list("a.pdf", ReceiptStatus::done);
        const FieldFormats formats{QLocale::c(), QLocale::c()};
        QVERIFY(pipeline_->appState->correct(only().id, {{ReceiptField::summary, u"typed"_s}}, formats));
        const Receipt before = only();
        retries().add({before.id});
        QVERIFY(waitUntil([this] { return only().fileName == finalName; }));
        QVERIFY(!pipeline_->appState->isCorrected(before.id));
        history().undo();
        QCOMPARE(only(), before);
        QVERIFY(pipeline_->appState->isCorrected(before.id));
        history().undo();
        QVERIFY(!pipeline_->appState->isCorrected(before.id));
    }

    void whatAScanUnderWayReadsIsDisregarded() {
        const Receipt before = list("a.pdf", ReceiptStatus::error);
        pipeline_->server.holdAnswers();
        pipeline_->appState->retry(before);
        QVERIFY(waitUntil([this] { return pipeline_->server.requests().size() == 1; }));
        history().undo();
        QCOMPARE(only(), before);
        pipeline_->server.letAnswersGo();
        letTimePass(1000);
        QCOMPARE(only(), before);
        history().redo(); // scans it
        QVERIFY(waitUntil([this] { return only().fileName == finalName; }));
        QCOMPARE(pipeline_->server.requests().size(), 2);
        history().undo();
        QCOMPARE(only(), before);
    }

    void manyRetriesAreOneDeedAndThoseThatWaitDoNotBegin() {
        for (int number = 0; number < 6; ++number) {
            list(QByteArray::number(number) + ".pdf", ReceiptStatus::error);
        }
        const QList<Receipt> before = pipeline_->receipts();
        pipeline_->server.holdAnswers();
        retries().addAllFailed();
        QCOMPARE(history().stack()->undoText(), u"Retry of 6 Receipts"_s);
        QVERIFY(waitUntil([this] { return pipeline_->server.requests().size() == 4; }));
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        pipeline_->server.letAnswersGo();
        QVERIFY(waitUntil([this] { return !retries().isUnderWay(); }));
        letTimePass(500);
        QCOMPARE(pipeline_->receipts(), before);
        QCOMPARE(pipeline_->server.requests().size(), 4);
        QVERIFY(!history().stack()->canUndo());
    }

    void deliveryToPhotosStays() {
        const Receipt before = list("a.pdf", ReceiptStatus::error);
        pipeline_->appState->retry(before);
        QVERIFY(waitUntil([this] { return only().fileName == finalName; }));
        Receipt delivered = only();
        delivered.addedToPhotos = true;
        pipeline_->store->update(delivered);
        history().undo();
        QCOMPARE(only().status, ReceiptStatus::error);
        QVERIFY(only().addedToPhotos);
    }

private:
    UndoHistory &history() { return *pipeline_->appState->history(); }
    RetryAll &retries() { return *pipeline_->appState->retryAll(); }
    const Receipt &only() const { return pipeline_->receipts().first(); }

    Receipt list(const QByteArray &name, ReceiptStatus status) {
        Receipt receipt = finishedReceipt(pipeline_->path(QString::fromUtf8(name)));
        receipt.status = status;
        if (status == ReceiptStatus::error) {
            receipt.error = u"Gemini API error: 500 — no"_s;
        }
        pipeline_->store->add(receipt);
        pipeline_->drop(receipt.fileName, name);
        return receipt;
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int undo_retry_test(int argc, char **argv) {
    return runTest<QApplication, UndoRetryTest>(argc, argv);
}
#include "undo_retry_test.moc"
