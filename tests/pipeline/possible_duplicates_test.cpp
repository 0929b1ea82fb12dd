#include "pipeline/duplicates/possible_duplicates.h"
#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// What may be a duplicate of what, by the list, the files and the archives of a real folder.
class PossibleDuplicatesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->start();
    }
    void cleanup() { pipeline_.reset(); }

    void samePurchaseIsFound() {
        const Receipt first = add(u"a"_s, "one", 5);
        const Receipt second = add(u"b"_s, "two", 5);
        QCOMPARE(duplicates()->otherOf(first.id), listed(second.id));
        QCOMPARE(duplicates()->otherOf(second.id), listed(first.id));
    }

    void sameContentIsFoundWhateverWasRead() {
        const Receipt first = add(u"a"_s, "the same", 5);
        const Receipt second = add(u"b"_s, "the same", 6);
        const Receipt other = add(u"c"_s, "as long.", 7);
        QVERIFY(waitUntil([&] { return duplicates()->contains(second.id); }));
        QCOMPARE(duplicates()->otherOf(first.id), listed(second.id));
        QCOMPARE(duplicates()->otherOf(second.id), listed(first.id));
        QVERIFY(!duplicates()->contains(other.id));
        pipeline_->store->remove({first.id});
        QVERIFY(waitUntil([&] { return !duplicates()->contains(second.id); }));
    }

    void filesThatCannotBeReadAreNotTheSame() {
        const Receipt missing = add(u"a"_s, {}, 5);
        const Receipt empty = add(u"b"_s, {}, 6);
        QFile::remove(missing.filePath);
        const Receipt first = add(u"c"_s, "the same", 7);
        const Receipt second = add(u"d"_s, "the same", 8);
        QVERIFY(waitUntil([&] { return duplicates()->contains(second.id); })); // all were looked at
        QVERIFY(duplicates()->contains(first.id));
        QVERIFY(!duplicates()->contains(missing.id));
        QVERIFY(!duplicates()->contains(empty.id));
    }

    void archivedPurchaseIsFound_data() {
        QTest::addColumn<ExportService::Format>("format");
        QTest::newRow("csv") << ExportService::Format::csv;
        QTest::newRow("html") << ExportService::Format::html;
    }
    void archivedPurchaseIsFound() {
        QFETCH(ExportService::Format, format);
        add(u"a"_s, "one", 5);
        pipeline_->appState->archiveAndClear(format);
        const Receipt again = add(u"b"_s, "two", 5);
        const Receipt other = add(u"c"_s, "three", 6);
        QVERIFY(waitUntil([&] { return duplicates()->contains(again.id); }));
        QCOMPARE(duplicates()->otherOf(again.id), archived(u"a.pdf"_s));
        QVERIFY(!duplicates()->contains(other.id));
        QCOMPARE(duplicates()->repeatsAmong({again.id, other.id}), 1);
    }

    void archivedContentIsFound() {
        add(u"a"_s, "the same", 5);
        pipeline_->appState->archiveAndClear(ExportService::Format::csv);
        const Receipt again = add(u"b"_s, "the same", 6);
        QVERIFY(waitUntil([&] { return duplicates()->contains(again.id); }));
        QCOMPARE(duplicates()->otherOf(again.id), archived(u"a.pdf"_s));
    }

    void receiptsOfAnUndoneArchiveAreNoDuplicatesOfThemselves() {
        add(u"a"_s, "one", 5);
        pipeline_->appState->archiveAndClear(ExportService::Format::csv);
        const Receipt again = add(u"b"_s, "two", 5);
        QVERIFY(waitUntil([&] { return duplicates()->contains(again.id); }));
        pipeline_->store->remove({again.id});
        pipeline_->appState->history()->undo();
        QCOMPARE(pipeline_->receipts().size(), 1);
        QVERIFY(waitUntil([&] { return !duplicates()->contains(pipeline_->receipts().first().id); }));
    }

    void onlyTheLaterOnesOfABatchAreRepeats() {
        const Receipt first = add(u"a"_s, "one", 5);
        const Receipt second = add(u"b"_s, "two", 5);
        const Receipt third = add(u"c"_s, "three", 5);
        QCOMPARE(duplicates()->repeatsAmong({first.id, second.id}), 1);
        QCOMPARE(duplicates()->repeatsAmong({first.id, second.id, third.id}), 2);
        QCOMPARE(duplicates()->repeatsAmong({third.id}), 1); // of one that was there before
        QCOMPARE(duplicates()->repeatsAmong({}), 0);
    }

private:
    const PossibleDuplicates *duplicates() const { return pipeline_->appState->duplicates(); }

    // Outside the watched folder nothing is scanned.
    Receipt add(const QString &name, const QByteArray &content, double amount) {
        const QString folder = surroundings_.home.path(u"elsewhere"_s);
        QDir().mkpath(folder);
        Receipt receipt = finishedReceipt(folder + u'/' + name + u".pdf"_s);
        receipt.amount = amount;
        writeFile(receipt.filePath, content);
        pipeline_->store->add(receipt);
        return receipt;
    }

    static OtherReceipt listed(const QString &id) { return {.id = id, .archivedPath = {}}; }

    OtherReceipt archived(const QString &fileName) const {
        return {.id = {}, .archivedPath = pipeline_->appState->archiveDestinationPath() + u'/' + fileName};
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int possible_duplicates_test(int argc, char **argv) {
    return runTest<QApplication, PossibleDuplicatesTest>(argc, argv);
}
#include "possible_duplicates_test.moc"
