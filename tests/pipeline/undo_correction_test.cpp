#include "pipeline/undo/renaming_journal.h"
#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QFileInfo>
#include <QSignalSpy>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const FieldFormats plainFormats{QLocale::c(), QLocale::c()};
const QString nameOf32 = u"2024-05-01 Lunch - Mario's Cafe $32.50.pdf"_s;

} // namespace

class UndoCorrectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->start();
    }
    void cleanup() { pipeline_.reset(); }

    void fieldsAndNameReturnAndTheFileIsNotReadAgain() {
        const Receipt before = listOne();
        correctAmount(u"32.50"_s);
        QCOMPARE(only().fileName, nameOf32);
        QCOMPARE(history().stack()->undoText(), u"Correction of “Mario's Cafe”"_s);
        history().undo();
        QCOMPARE(only(), before);
        QCOMPARE(ReceiptStore().receipts().first(), before); // on disk as well
        QVERIFY(QFileInfo::exists(before.filePath));
        QVERIFY(!QFileInfo::exists(pipeline_->path(nameOf32)));
        QVERIFY(!pipeline_->appState->isCorrected(before.id));
        pipeline_->start();
        letTimePass(1500);
        QCOMPARE(pipeline_->receipts().size(), 1);
        QVERIFY(pipeline_->server.requests().isEmpty());
    }

    void correctionIsDoneAgain() {
        const Receipt before = listOne();
        correctAmount(u"32.50"_s);
        const Receipt after = only();
        history().undo();
        history().redo();
        QCOMPARE(only(), after);
        QVERIFY(QFileInfo::exists(after.filePath));
        QVERIFY(pipeline_->appState->isCorrected(before.id));
        history().undo();
        QCOMPARE(only(), before);
    }

    void earlierCorrectionOfTheReceiptIsStillRemembered() {
        listOne();
        correctAmount(u"32.50"_s);
        correctAmount(u"33"_s);
        history().undo();
        QCOMPARE(only().amount, 32.5);
        QVERIFY(pipeline_->appState->isCorrected(only().id));
    }

    void failedReceiptFailsAgain() {
        Receipt failed = freshReceipt(pipeline_->path(u"a.pdf"_s));
        failed.status = ReceiptStatus::error;
        failed.error = u"Gemini API error: 500 — no"_s;
        pipeline_->store->add(failed);
        pipeline_->drop(u"a.pdf"_s);
        correctAmount(u"32.50"_s);
        QCOMPARE(only().status, ReceiptStatus::done);
        history().undo();
        QCOMPARE(only(), failed);
        QVERIFY(QFileInfo::exists(failed.filePath));
    }

    void takenNameGetsANumberAndIsReported() {
        const Receipt before = listOne();
        correctAmount(u"32.50"_s);
        QVERIFY(pipeline_->store->ignore({before.filePath}));
        writeFile(before.filePath, "another");
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(only().amount, before.amount);
        QCOMPARE(only().fileName, u"a (2).pdf"_s);
        QCOMPARE(readFile(only().filePath), "a receipt");
        QCOMPARE(readFile(before.filePath), "another");
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{u"a.pdf: Another file has this name; it is now “a (2).pdf”."_s});
        history().redo();
        QCOMPARE(only().fileName, nameOf32);
        QCOMPARE(readFile(only().filePath), "a receipt");
    }

    void fileThatIsGoneIsReportedAndTheFieldsReturn() {
        const Receipt before = listOne();
        correctAmount(u"32.50"_s);
        QVERIFY(QFile::remove(only().filePath));
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(only().amount, before.amount);
        QCOMPARE(only().fileName, nameOf32);
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{nameOf32 + u": The file is no longer there."_s});
    }

    void whatChangedSinceStays() {
        listOne();
        QVERIFY(correct({{ReceiptField::amount, u"32.50"_s}, {ReceiptField::summary, u"typed"_s}}));
        Receipt changed = only();
        changed.summary = u"of another hand"_s;
        changed.addedToPhotos = true;
        pipeline_->store->update(changed);
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QCOMPARE(only().amount, 23.5);
        QCOMPARE(only().summary, u"of another hand"_s);
        QVERIFY(only().addedToPhotos);
        QCOMPARE(reports.size(), 1);
    }

    void receiptThatHasLeftTheListIsReported() {
        listOne();
        correctAmount(u"32.50"_s);
        pipeline_->store->clearAll();
        QSignalSpy reports(&history(), &UndoHistory::incomplete);
        history().undo();
        QVERIFY(pipeline_->receipts().isEmpty());
        QCOMPARE(reports.first().first().toStringList(),
                 QStringList{nameOf32 + u": It is no longer in the list."_s});
    }

    void correctionWithoutAChangeIsNoDeed() {
        listOne();
        correctAmount(u"23.50"_s);
        QVERIFY(!history().stack()->canUndo());
    }

    void killAroundTheRenamingLosesNothing_data() {
        QTest::addColumn<bool>("isMoved");
        QTest::newRow("before the file is moved") << false;
        QTest::newRow("before the list has the name") << true;
    }
    void killAroundTheRenamingLosesNothing() {
        QFETCH(bool, isMoved);
        const Receipt before = listOne();
        correctAmount(u"32.50"_s);
        Receipt undone = only();
        undone.amount = before.amount;
        pipeline_->store->update(undone);
        RenamingJournal().begin({undone.id, undone.filePath, before.filePath});
        pipeline_->appState.reset();
        if (isMoved) {
            QVERIFY(QFile::rename(undone.filePath, before.filePath));
        }
        recover();
        QCOMPARE(only(), before);
        QVERIFY(QFileInfo::exists(before.filePath));
        QVERIFY(!RenamingJournal().pending());
    }

    void journalOfAnotherHandMovesNothingElsewhere() {
        const Receipt before = listOne();
        pipeline_->appState.reset();
        RenamingJournal().begin({before.id, before.filePath, surroundings_.home.path(u"elsewhere.pdf"_s)});
        QVERIFY(!RenamingJournal().pending());
        RenamingJournal().begin({before.id, before.filePath, pipeline_->path(u"../b.pdf"_s)});
        QVERIFY(!RenamingJournal().pending());
        pipeline_->drop(u"taken.pdf"_s, "another");
        RenamingJournal().begin({before.id, before.filePath, pipeline_->path(u"taken.pdf"_s)});
        recover();
        QCOMPARE(only(), before);
        QCOMPARE(readFile(pipeline_->path(u"taken.pdf"_s)), "another");
    }

private:
    UndoHistory &history() { return *pipeline_->appState->history(); }
    const Receipt &only() const { return pipeline_->receipts().first(); }

    Receipt listOne() {
        pipeline_->store->add(finishedReceipt(pipeline_->path(u"a.pdf"_s)));
        pipeline_->drop(u"a.pdf"_s);
        return only();
    }

    std::expected<void, FieldProblems> correct(const TypedFields &typed) {
        return pipeline_->appState->correct(only().id, typed, plainFormats);
    }

    void correctAmount(const QString &amount) { QVERIFY(correct({{ReceiptField::amount, amount}})); }

    void recover() {
        pipeline_->store = std::make_unique<ReceiptStore>();
        pipeline_->appState = std::make_unique<AppState>(pipeline_->store.get(), pipeline_->settings.get());
        const QFuture<void> recovery = pipeline_->appState->recoverFromInterruption();
        QVERIFY(waitUntil([&] { return recovery.isFinished(); }));
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int undo_correction_test(int argc, char **argv) {
    return runTest<QApplication, UndoCorrectionTest>(argc, argv);
}
#include "undo_correction_test.moc"
