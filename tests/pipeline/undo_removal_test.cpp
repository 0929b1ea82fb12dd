#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class UndoRemovalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->start();
    }
    void cleanup() { pipeline_.reset(); }

    void removedReceiptsReturnToTheirPlacesAndAreNotReadAgain() {
        const QList<Receipt> before = listThree();
        history().removeFromList({before[0].id, before[2].id});
        QCOMPARE(pipeline_->receipts().size(), 1);
        QCOMPARE(history().stack()->undoText(), u"Remove from List"_s);
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        QVERIFY(pipeline_->store->ignoredPaths().isEmpty());
        pipeline_->start(); // looks at all files of the folder
        letTimePass(1500);
        QCOMPARE(pipeline_->receipts(), before);
        QVERIFY(pipeline_->server.requests().isEmpty());
    }

    void removalIsDoneAgain() {
        const QList<Receipt> before = listThree();
        history().removeFromList({before[1].id});
        history().undo();
        history().redo();
        QCOMPARE(pipeline_->receipts(), (QList<Receipt>{before[0], before[2]}));
        QVERIFY(pipeline_->store->isIgnored(before[1].filePath));
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
    }

    void nothingIsOnTheStackIfNothingWasRemoved() {
        listThree();
        history().removeFromList({u"unknown"_s});
        QVERIFY(!history().stack()->canUndo());
        history().undo();
        QCOMPARE(pipeline_->receipts().size(), 3);
    }

    void fileThatIsGoneIsReportedAndItsReceiptReturns() {
        const QList<Receipt> before = listThree();
        history().removeFromList({before[0].id, before[1].id});
        QVERIFY(QFile::remove(before[1].filePath));
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        QCOMPARE(reports.size(), 1);
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{before[1].fileName + u": The file is no longer there."_s});
    }

    void fileThatAnotherReceiptHasByNowStaysWithThatOne() {
        const QList<Receipt> before = listThree();
        history().removeFromList({before[0].id, before[1].id});
        const Receipt other = finishedReceipt(before[0].filePath);
        pipeline_->store->add(other);
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(pipeline_->receipts().size(), 3);
        QVERIFY(pipeline_->store->hasReceipt(other.id));
        QVERIFY(pipeline_->store->hasReceipt(before[1].id));
        QVERIFY(!pipeline_->store->hasReceipt(before[0].id));
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{before[0].fileName + u": The list has this file already."_s});
    }

    void receiptWhoseScanEndedMeanwhileCanBeRetried() {
        pipeline_->server.holdAnswers();
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(waitUntil([this] { return pipeline_->server.requests().size() == 1; }));
        history().removeFromList({pipeline_->receipts().first().id});
        pipeline_->server.letAnswersGo();
        letTimePass(500);
        history().undo();
        QCOMPARE(pipeline_->receipts().first().status, ReceiptStatus::error);
        pipeline_->appState->retry(pipeline_->receipts().first());
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
    }

    void scanThatIsStillUnderWayGivesTheReturnedReceiptItsResult() {
        pipeline_->server.holdAnswers();
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(waitUntil([this] { return pipeline_->server.requests().size() == 1; }));
        history().removeFromList({pipeline_->receipts().first().id});
        history().undo();
        QCOMPARE(pipeline_->receipts().first().status, ReceiptStatus::processing);
        pipeline_->server.letAnswersGo();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QCOMPARE(pipeline_->server.requests().size(), 1);
    }

private:
    UndoHistory &history() { return *pipeline_->appState->history(); }

    // Finished receipts of one second, in the order of their names, with files that the intake knows.
    QList<Receipt> listThree() {
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s}) {
            pipeline_->store->add(finishedReceipt(pipeline_->path(name)));
            pipeline_->drop(name);
        }
        return pipeline_->receipts();
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int undo_removal_test(int argc, char **argv) {
    return runTest<QApplication, UndoRemovalTest>(argc, argv);
}
#include "undo_removal_test.moc"
