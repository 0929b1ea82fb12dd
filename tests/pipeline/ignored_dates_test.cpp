#include "pipeline/ignored_dates.h"
#include "pipeline_under_test.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class IgnoredDatesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_); }
    void cleanup() { pipeline_.reset(); }

    void dateOfIgnoringIsKeptOverARestart() {
        pipeline_->start();
        const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-1); // it is kept in whole seconds
        pipeline_->store->add(finishedReceipt(u"/w/a.pdf"_s));
        pipeline_->store->clearAll();
        const ReceiptStore store;
        const auto date = IgnoredDates(&store).date(u"/w/a.pdf"_s);
        QVERIFY(date);
        QVERIFY(*date >= before && *date <= QDateTime::currentDateTimeUtc());
        QCOMPARE(QFileInfo(file()).permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
    }

    void pathThatWasIgnoredEarlierHasNone() {
        writeFile(surroundings_.home.ignoredFile(), R"(["/w/old.pdf"])");
        ReceiptStore store;
        const IgnoredDates dates(&store);
        QVERIFY(!dates.date(u"/w/old.pdf"_s));
        QVERIFY(store.ignore({u"/w/new.pdf"_s}));
        QVERIFY(!dates.date(u"/w/old.pdf"_s));
        QVERIFY(dates.date(u"/w/new.pdf"_s));
        QCOMPARE(readFile(surroundings_.home.ignoredFile()).size(),
                 qsizetype(std::char_traits<char>::length(R"(["\/w\/old.pdf","\/w\/new.pdf"])")));
    }

    void pathThatIsNoLongerIgnoredHasNone() {
        ReceiptStore store;
        const IgnoredDates dates(&store);
        QVERIFY(store.ignore({u"/w/a.pdf"_s}));
        store.stopIgnoring({u"/w/a.pdf"_s});
        QVERIFY(!dates.date(u"/w/a.pdf"_s));
        QVERIFY(!readFile(file()).contains("a.pdf"));
    }

    void damagedFileIsPutAside() {
        writeFile(file(), "{\"version\":2}");
        ReceiptStore store;
        const IgnoredDates dates(&store);
        QVERIFY(store.ignore({u"/w/a.pdf"_s}));
        QVERIFY(dates.date(u"/w/a.pdf"_s));
        QCOMPARE(QFileInfo(file()).dir().entryList({u"ignored-dates.json.damaged-*"_s}).size(), 1);
    }

    void restoredFileIsRead() {
        const QString path = pipeline_->drop(u"a.pdf"_s);
        writeFile(surroundings_.home.ignoredFile(), "[\"" + path.toUtf8() + "\",\"/w/elsewhere.pdf\"]");
        pipeline_->start();
        letTimePass(1000);
        QVERIFY(pipeline_->receipts().isEmpty());
        pipeline_->appState->restoreIgnored({path, u"/w/elsewhere.pdf"_s});
        QVERIFY(pipeline_->waitForRows(1, ReceiptStatus::done));
        QVERIFY(ReceiptStore().ignoredPaths().isEmpty());
    }

private:
    QString file() const { return surroundings_.home.path(u"data/Fennick/ignored-dates.json"_s); }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
};

int ignored_dates_test(int argc, char **argv) {
    return runTest<QApplication, IgnoredDatesTest>(argc, argv);
}
#include "ignored_dates_test.moc"
