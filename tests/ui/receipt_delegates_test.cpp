#include "support/conditions.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/receipts_table.h"
#include "ui/main_window/receipts_table_model.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString longText = u"a long text "_s.repeated(30).trimmed();

} // namespace

class ReceiptDelegatesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<TemporaryHome>();
        store_ = std::make_unique<ReceiptStore>();
        table_ = std::make_unique<ReceiptsTable>(store_.get());
        table_->resize(900, 400);
        table_->show();
    }
    void cleanup() { QToolTip::hideText(); }

    void spinnerOfASelectedRowHasTheColourOfItsText() {
        QPalette palette = table_->palette();
        palette.setColor(QPalette::Highlight, Qt::black);
        palette.setColor(QPalette::HighlightedText, Qt::red);
        table_->setPalette(palette);
        store_->add(freshReceipt(u"/w/a.pdf"_s));
        QVERIFY(!showsRedSpinner());
        table_->selectRow(0);
        QVERIFY(showsRedSpinner());
    }

    void cutOffTextsAreShownWholeInATip_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("tip");
        QTest::newRow("location") << int(ReceiptsTableModel::locationColumn) << longText
                                  << u"<span>%1</span>"_s.arg(longText);
        QTest::newRow("location that fits")
            << int(ReceiptsTableModel::locationColumn) << u"here"_s << QString();
        QTest::newRow("category") << int(ReceiptsTableModel::categoryColumn) << u"Miscellaneousexpenditure"_s
                                  << u"<span>Miscellaneousexpenditure</span>"_s;
        QTest::newRow("summary") << int(ReceiptsTableModel::summaryColumn) << longText
                                 << u"<span>%1</span><br><span>a.pdf</span>"_s.arg(longText);
        QTest::newRow("summary that fits")
            << int(ReceiptsTableModel::summaryColumn) << u"Lunch"_s << u"<span>a.pdf</span>"_s;
    }
    void cutOffTextsAreShownWholeInATip() {
        QFETCH(int, column);
        QFETCH(QString, text);
        QFETCH(QString, tip);
        Receipt receipt = finishedReceipt(u"/w/a.pdf"_s);
        receipt.location = text;
        receipt.category = text;
        receipt.summary = text;
        store_->add(receipt);
        const QPoint place = table_->visualRect(table_->model()->index(0, column)).center();
        QVERIFY(waitUntil([&] { // the window's activation takes a tip away
            QHelpEvent event(QEvent::ToolTip, place, table_->viewport()->mapToGlobal(place));
            QCoreApplication::sendEvent(table_->viewport(), &event);
            return QToolTip::text() == tip;
        }));
    }

private:
    bool showsRedSpinner() const {
        const QRect cell = table_->visualRect(table_->model()->index(0, ReceiptsTableModel::statusColumn));
        const QImage picture = table_->viewport()->grab(cell.adjusted(2, 2, -2, -2)).toImage();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                if (colour.red() > 150 && colour.green() < 60 && colour.blue() < 60) {
                    return true;
                }
            }
        }
        return false;
    }

    std::unique_ptr<TemporaryHome> home_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<ReceiptsTable> table_;
};

int receipt_delegates_test(int argc, char **argv) {
    return runTest<QApplication, ReceiptDelegatesTest>(argc, argv);
}
#include "receipt_delegates_test.moc"
