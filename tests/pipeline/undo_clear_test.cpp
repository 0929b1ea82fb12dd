#include "pipeline/undo/deed_record.h"
#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class UndoClearTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->start();
    }
    void cleanup() { pipeline_.reset(); }

    void rowsTheirOrderAndIgnoredPathsReturn() {
        QVERIFY(pipeline_->store->ignore({u"/w/ignored before.pdf"_s}));
        const QList<Receipt> before = listThree();
        history().clearAll();
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(history().stack()->undoText(), u"Clear All"_s);
        history().undo();
        QCOMPARE(pipeline_->receipts(), before);
        QCOMPARE(ReceiptStore().receipts(), before);
        QCOMPARE(ReceiptStore().ignoredPaths(), QSet<QString>{u"/w/ignored before.pdf"_s});
        QVERIFY(DeedRecord().deeds().isEmpty());
        pipeline_->start();
        letTimePass(1500);
        QVERIFY(pipeline_->server.requests().isEmpty());
    }

    void clearingIsDoneAgainForItsOwnReceipts() {
        listThree();
        history().clearAll();
        history().undo();
        const Receipt newer = finishedReceipt(u"/w/newer.pdf"_s);
        pipeline_->store->add(newer);
        history().redo();
        QCOMPARE(pipeline_->receipts(), QList<Receipt>{newer});
        QCOMPARE(DeedRecord().deeds().size(), 1);
        history().undo();
        QCOMPARE(pipeline_->receipts().size(), 4);
    }

    void emptyListIsNoDeed() {
        history().clearAll();
        QVERIFY(!history().stack()->canUndo());
        QVERIFY(DeedRecord().deeds().isEmpty());
    }

    void lastClearingIsUndoneAfterARestart() {
        const QList<Receipt> first = listThree();
        history().clearAll();
        pipeline_->store->add(finishedReceipt(u"/w/other.pdf"_s));
        const QList<Receipt> second = pipeline_->receipts();
        history().clearAll();
        restart();
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(history().stack()->undoText(), u"Clear All"_s);
        history().undo();
        QCOMPARE(pipeline_->receipts(), second);
        QVERIFY(!pipeline_->store->isIgnored(u"/w/other.pdf"_s));
        QVERIFY(pipeline_->store->isIgnored(first.first().filePath));
        QVERIFY(!history().stack()->canUndo());
        restart();
        QVERIFY(!history().stack()->canUndo());
        QCOMPARE(pipeline_->receipts(), second);
    }

    void earlierClearingIsUndoneAfterARestartIfTheLaterOneWasUndone() {
        const QList<Receipt> first = listThree();
        history().clearAll();
        pipeline_->store->add(finishedReceipt(u"/w/other.pdf"_s));
        history().clearAll();
        history().undo();
        restart();
        history().undo();
        QCOMPARE(pipeline_->receipts().size(), 4);
        QVERIFY(pipeline_->store->hasReceipt(first.first().id));
    }

    void killedClearingIsTakenBack_data() {
        QTest::addColumn<bool>("isIgnored");
        QTest::newRow("before the paths are ignored") << false;
        QTest::newRow("before the list is saved") << true;
    }
    void killedClearingIsTakenBack() {
        QFETCH(bool, isIgnored);
        const QList<Receipt> before = listThree();
        recordClearing(false);
        if (isIgnored) {
            ignoreAll(before);
        }
        restart();
        QCOMPARE(pipeline_->receipts(), before);
        QVERIFY(ReceiptStore().ignoredPaths().isEmpty());
        QVERIFY(!history().stack()->canUndo());
        QVERIFY(DeedRecord().deeds().isEmpty());
    }

    void killedUndoIsCompleted_data() {
        QTest::addColumn<bool>("isListed");
        QTest::newRow("before the list is saved") << false;
        QTest::newRow("before the paths are no longer ignored") << true;
    }
    void killedUndoIsCompleted() {
        QFETCH(bool, isListed);
        const QList<Receipt> before = listThree();
        recordClearing(true);
        ignoreAll(before);
        if (!isListed) {
            writeFile(surroundings_.home.receiptsFile(), "[]");
        }
        restart();
        QCOMPARE(pipeline_->receipts(), before);
        QVERIFY(ReceiptStore().ignoredPaths().isEmpty());
        QVERIFY(!history().stack()->canUndo());
    }

private:
    UndoHistory &history() { return *pipeline_->appState->history(); }

    QList<Receipt> listThree() {
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s}) {
            pipeline_->store->add(finishedReceipt(pipeline_->path(name)));
            pipeline_->drop(name);
        }
        return pipeline_->receipts();
    }

    // As the program does before it changes anything.
    void recordClearing(bool isBeingUndone) {
        RecordedDeed deed;
        deed.id = u"1"_s;
        deed.removed = pipeline_->store->beforeRemovalOfAll();
        deed.isBeingUndone = isBeingUndone;
        DeedRecord().insert(deed);
    }

    void ignoreAll(const QList<Receipt> &receipts) {
        QStringList paths;
        for (const Receipt &receipt : receipts) {
            paths.append(receipt.filePath);
        }
        QVERIFY(pipeline_->store->ignore(paths));
    }

    void restart() {
        pipeline_->appState.reset();
        pipeline_->store = std::make_unique<ReceiptStore>();
        pipeline_->appState = std::make_unique<AppState>(pipeline_->store.get(), pipeline_->settings.get());
        const QFuture<void> recovery = pipeline_->appState->recoverFromInterruption();
        QVERIFY(waitUntil([&] { return recovery.isFinished(); }));
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int undo_clear_test(int argc, char **argv) {
    return runTest<QApplication, UndoClearTest>(argc, argv);
}
#include "undo_clear_test.moc"
