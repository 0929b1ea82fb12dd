#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QFileInfo>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const FieldFormats formatsOfC{QLocale::c(), QLocale::c()};
const QString correctedName = u"2024-05-01 Lunch - Dockside Deli $32.50.pdf"_s;

} // namespace

class CorrectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void changesTheListAndTheFilesName() {
        scanOne();
        const Receipt before = only();
        QVERIFY(correct({{ReceiptField::amount, u"32.50"_s}}));
        Receipt expected = before;
        expected.amount = 32.5;
        expected.fileName = correctedName;
        expected.filePath = pipeline_->path(correctedName);
        QCOMPARE(only(), expected);
        QCOMPARE(ReceiptStore().receipts(), pipeline_->receipts()); // on disk as well
        QVERIFY(QFileInfo::exists(pipeline_->path(correctedName)));
        QVERIFY(!QFileInfo::exists(before.filePath));
    }

    void renamedFileIsNotReadAgain() {
        scanOne();
        QVERIFY(correct({{ReceiptField::amount, u"32.50"_s}}));
        letTimePass(1500);
        QCOMPARE(pipeline_->receipts().size(), 1);
        QCOMPARE(pipeline_->server.requests().size(), 1);
    }

    void fileOfThatNameIsNotReplaced() {
        scanOne();
        pipeline_->appState.reset(); // a file that nobody lists
        writeFile(pipeline_->path(correctedName), "another");
        pipeline_->appState = std::make_unique<AppState>(pipeline_->store.get(), pipeline_->settings.get());
        const TypedFields typed{{ReceiptField::amount, u"32.50"_s}};
        const QString numbered = u"2024-05-01 Lunch - Dockside Deli $32.50 (2).pdf"_s;
        QFuture<QString> name = pipeline_->appState->fileNameAfterCorrection(only().id, typed, formatsOfC);
        name.waitForFinished();
        QCOMPARE(name.result(), numbered);
        QVERIFY(correct(typed));
        QCOMPARE(only().fileName, numbered);
        QCOMPARE(readFile(pipeline_->path(correctedName)), "another");
    }

    void fileKeepsItsNumberIfItsNameStays() {
        pipeline_->start();
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        pipeline_->drop(u"b.pdf"_s, "another receipt");
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        const QString numbered = u"2024-05-01 Lunch - Dockside Deli $23.50 (2).pdf"_s;
        const auto second =
            std::find_if(pipeline_->receipts().cbegin(), pipeline_->receipts().cend(),
                         [&](const Receipt &receipt) { return receipt.fileName == numbered; });
        QVERIFY(second != pipeline_->receipts().cend());
        const QString id = second->id;
        QVERIFY(pipeline_->appState->correct(id, {{ReceiptField::summary, u"Shared lunch"_s}}, formatsOfC));
        QCOMPARE(pipeline_->store->receipt(id)->summary, u"Shared lunch"_s);
        QCOMPARE(pipeline_->store->receipt(id)->fileName, numbered);
        QVERIFY(QFileInfo::exists(pipeline_->path(numbered)));
    }

    void failedReceiptIsDoneWithTypedFields() {
        PrivateSession::clearKey();
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QVERIFY(correct({{ReceiptField::date, u"2024-06-01"_s}, {ReceiptField::amount, u"9"_s}}));
        QCOMPARE(only().status, ReceiptStatus::done);
        QVERIFY(!only().error);
        QCOMPARE(only().fileName, u"2024-06-01 Misc 9.00.pdf"_s);
        QVERIFY(QFileInfo::exists(only().filePath));
    }

    void nothingChangesWhileAFieldIsNotUnderstood() {
        scanOne();
        const Receipt before = only();
        const auto result =
            correct({{ReceiptField::date, u"2024-02-31"_s}, {ReceiptField::amount, u"32.50"_s}});
        QVERIFY(!result);
        QCOMPARE(result.error().size(), std::size_t{1});
        QCOMPARE(result.error().at(ReceiptField::date).description(), u"There is no 31 February"_s);
        QCOMPARE(only(), before);
        QVERIFY(QFileInfo::exists(before.filePath));
    }

    void nothingTypedChangesNothing() {
        PrivateSession::clearKey();
        pipeline_->drop(u"a.pdf"_s);
        pipeline_->start();
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::error));
        QVERIFY(correct({}));
        QCOMPARE(only().status, ReceiptStatus::error);
    }

    void receiptThatIsBeingScannedCannotBeCorrected() {
        pipeline_->start();
        Receipt receipt = freshReceipt(pipeline_->path(u"missing.pdf"_s));
        pipeline_->store->add(receipt);
        QVERIFY(!pipeline_->appState->canCorrect(receipt.id));
        QVERIFY(correct({{ReceiptField::amount, u"1"_s}}));
        QCOMPARE(only(), receipt);
        QVERIFY(!pipeline_->appState->canCorrect(u"of no receipt"_s));
    }

    void changesOfOthersMeanwhileAreKept() {
        scanOne();
        Receipt delivered = only();
        delivered.addedToPhotos = true;
        pipeline_->store->update(delivered);
        QVERIFY(correct({{ReceiptField::category, u"dinner"_s}}));
        QVERIFY(only().addedToPhotos);
        QCOMPARE(only().category, u"dinner"_s);
    }

    void correctionIsRememberedUntilTheReceiptIsReadAgain() {
        scanOne();
        QVERIFY(!pipeline_->appState->isCorrected(only().id));
        QVERIFY(correct({{ReceiptField::amount, u"32.50"_s}}));
        QVERIFY(pipeline_->appState->isCorrected(only().id));
        pipeline_->appState->retryAll()->add({only().id});
        QVERIFY(waitUntil([this] { return only().amount == 23.5 && only().fileName == finalName; }));
        QVERIFY(!pipeline_->appState->isCorrected(only().id));
        QVERIFY(QFileInfo::exists(pipeline_->path(finalName)));
    }

    void fileKeepsItsNumberIfItIsReadAgain() {
        pipeline_->start();
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        pipeline_->drop(u"b.pdf"_s, "another receipt");
        const QString numbered = u"2024-05-01 Lunch - Dockside Deli $23.50 (2).pdf"_s;
        QVERIFY(waitUntil([&] { return pipeline_->listedNames().contains(numbered); }));
        const QStringList names = pipeline_->listedNames();
        pipeline_->appState->retryAll()->add({pipeline_->receipts()[0].id, pipeline_->receipts()[1].id});
        QVERIFY(waitUntil([this] { return pipeline_->server.requests().size() == 4; }));
        QVERIFY(pipeline_->waitForRows(2, ReceiptStatus::done));
        QCOMPARE(pipeline_->listedNames(), names);
    }

    void killBeforeTheNewNameIsRecordedLosesNothing() {
        scanOne();
        Receipt corrected = only();
        corrected.amount = 32.5;
        pipeline_->store->update(corrected); // the first step; the second is the renaming
        QVERIFY(QFile::rename(corrected.filePath, pipeline_->path(correctedName)));
        pipeline_->appState.reset();
        ReceiptStore store;
        AppState next(&store, pipeline_->settings.get());
        QFuture<void> recovered = next.recoverFromInterruption();
        QVERIFY(waitUntil([&] { return recovered.isFinished(); }));
        QCOMPARE(store.receipts().first().fileName, correctedName);
        QCOMPARE(store.receipts().first().filePath, pipeline_->path(correctedName));
    }

private:
    void scanOne() {
        pipeline_->start();
        pipeline_->drop(u"a.pdf"_s);
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QVERIFY(waitUntil([this] { return only().fileName == finalName; }));
    }

    const Receipt &only() const { return pipeline_->receipts().first(); }

    std::expected<void, FieldProblems> correct(const TypedFields &typed) {
        return pipeline_->appState->correct(only().id, typed, formatsOfC);
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int correction_test(int argc, char **argv) {
    return runTest<QApplication, CorrectionTest>(argc, argv);
}
#include "correction_test.moc"
