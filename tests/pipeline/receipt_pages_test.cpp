#include "pipeline_under_test.h"
#include "support/process_status.h"
#include "support/receipts.h"
#include "support/striped_pdf.h"
#include "support/test_program.h"

#include <QApplication>
#include <QDir>
#include <QImage>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

using State = ReceiptPages::State;

class ReceiptPagesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        pipeline_ = std::make_unique<PipelineUnderTest>(surroundings_);
        pipeline_->settings = std::make_unique<SettingsStore>();
        pipeline_->store = std::make_unique<ReceiptStore>();
        pipeline_->appState = std::make_unique<AppState>(pipeline_->store.get(), pipeline_->settings.get());
    }
    void cleanup() { pipeline_.reset(); }

    void pagesAreMadeInOrder() {
        pages()->show(receiptWith(stripedPdf(3)));
        QCOMPARE(pages()->state(), State::underWay);
        QVERIFY(waitUntil([this] { return pages()->state() == State::ready; }));
        QCOMPARE(pages()->files().size(), 3);
        QVERIFY(pages()->files().at(0).endsWith(u"(p1).jpg"));
        for (const QString &file : pages()->files()) {
            QVERIFY(!QImage(file).isNull());
        }
    }

    void nothingIsLeftBehind() {
        pages()->show(receiptWith(stripedPdf(1)));
        QVERIFY(waitUntil([this] { return pages()->state() == State::ready; }));
        pages()->clear();
        QCOMPARE(pages()->state(), State::none);
        QVERIFY(temporaryFolders().isEmpty());
        pages()->show(receiptWith("no PDF"));
        QVERIFY(waitUntil([this] { return pages()->state() == State::failed; }));
        QCOMPARE(pages()->failure(), u"Could not open PDF"_s);
        QVERIFY(temporaryFolders().isEmpty());
        pages()->show(receiptWith(stripedPdf(1)));
        QVERIFY(waitUntil([this] { return pages()->state() == State::ready; }));
        pipeline_->appState.reset();
        QVERIFY(temporaryFolders().isEmpty());
    }

    void anotherReceiptEndsWhatIsUnderWay() {
        const qint64 us = QCoreApplication::applicationPid();
        pages()->show(receiptWith(stripedPdf(400)));
        QVERIFY(waitUntil([us] { return !childrenNamed("convert_receipt", us).isEmpty(); }));
        pages()->show(receiptWith(stripedPdf(1)));
        QVERIFY(waitUntil([this] { return pages()->state() == State::ready; }));
        QCOMPARE(pages()->files().size(), 1);
        QVERIFY(waitUntil([this] { return temporaryFolders().size() == 1; }));
    }

    void passingOverAListStartsNothing() {
        const Receipt receipt = receiptWith(stripedPdf(1));
        for (int pass = 0; pass < 20; ++pass) {
            pages()->show(receipt);
        }
        QVERIFY(waitUntil([this] { return pages()->state() == State::ready; }));
        QCOMPARE(temporaryFolders().size(), 1);
    }

    void missingFileIsSaid() {
        pages()->show(finishedReceipt(pipeline_->path(u"missing.pdf"_s)));
        QVERIFY(waitUntil([this] { return pages()->state() == State::failed; }));
        QVERIFY(!pages()->failure().isEmpty());
    }

private:
    ReceiptPages *pages() const { return pipeline_->appState->pages(); }

    Receipt receiptWith(const QByteArray &content) {
        return finishedReceipt(pipeline_->drop(u"receipt-%1.pdf"_s.arg(++number_), content));
    }

    QStringList temporaryFolders() const {
        return QDir(surroundings_.home.temporaryImages()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    }

    Surroundings surroundings_;
    std::unique_ptr<PipelineUnderTest> pipeline_;
    int number_ = 0;
};

int receipt_pages_test(int argc, char **argv) {
    return runTest<QApplication, ReceiptPagesTest>(argc, argv);
}
#include "receipt_pages_test.moc"
