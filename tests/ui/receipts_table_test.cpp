#include "model/receipt_json.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/receipts_table.h"
#include "ui/main_window/receipts_table_model.h"
#include "ui/main_window/row_actions.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Model = ReceiptsTableModel;

class ReceiptsTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<TemporaryHome>();
        store_ = std::make_unique<ReceiptStore>();
        table_ = std::make_unique<ReceiptsTable>(store_.get());
        table_->resize(900, 400);
        table_->show();
    }

    void digitsHaveOneWidthInAnyFont() {
        const QFont font(u"Cantarell"_s, 20);
        if (QFontInfo(font).family() != u"Cantarell") {
            QSKIP("Needs the font Cantarell, whose digits differ in width");
        }
        const QFontMetrics metrics(font);
        QVERIFY(metrics.horizontalAdvance(u"11111111"_s) < metrics.horizontalAdvance(u"00000000"_s));
        table_->setFont(font);
        table_->setColumnWidth(Model::dateColumn, 300);
        QCOMPARE(placeOfTheX(u"1111-11-11x"_s), placeOfTheX(u"0000-00-00x"_s));
    }

    void rowOffersWhatItsStatusAllows_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("isAdded");
        QTest::addColumn<bool>("isExportOn");
        QTest::addColumn<QStringList>("buttons");
        const QString reveal = u"reveal"_s;
        const QString add = u"addToPhotos"_s;
        const QString retry = u"retry"_s;
        QTest::newRow("processing") << 0 << false << true << QStringList{reveal};
        QTest::newRow("done") << 1 << false << true << QStringList{reveal, add};
        QTest::newRow("done, export off") << 1 << false << false << QStringList{reveal};
        QTest::newRow("done and added") << 1 << true << true << QStringList{reveal};
        QTest::newRow("error") << 2 << false << true << QStringList{reveal, retry};
    }
    void rowOffersWhatItsStatusAllows() {
        QFETCH(int, status);
        QFETCH(bool, isAdded);
        QFETCH(bool, isExportOn);
        QFETCH(QStringList, buttons);
        Receipt receipt = finishedReceipt(u"/w/a.pdf"_s);
        receipt.status = static_cast<ReceiptStatus>(status);
        receipt.addedToPhotos = isAdded;
        table_->setPhotosExportOn(isExportOn);
        store_->add(receipt);
        QVERIFY(waitUntil([&] { return visibleButtons(0) == buttons; }));
    }

    void buttonsActOnTheirRow() {
        Receipt failed = finishedReceipt(u"/w/a.pdf"_s);
        failed.status = ReceiptStatus::error;
        store_->add(failed);
        store_->add(finishedReceipt(u"/w/b.pdf"_s));
        table_->setPhotosExportOn(true);
        QVERIFY(waitUntil([&] { return visibleButtons(1).size() == 2; }));
        QSignalSpy revealed(table_.get(), &ReceiptsTable::revealRequested);
        QSignalSpy retried(table_.get(), &ReceiptsTable::retryRequested);
        QSignalSpy added(table_.get(), &ReceiptsTable::addToPhotosRequested);
        QTest::mouseClick(button(1, "reveal"), Qt::LeftButton);
        QTest::mouseClick(button(0, "retry"), Qt::LeftButton);
        QTest::mouseClick(button(1, "addToPhotos"), Qt::LeftButton);
        QCOMPARE(revealed.first().first().value<Receipt>().filePath, u"/w/b.pdf"_s);
        QCOMPARE(retried.first().first().value<Receipt>().id, failed.id);
        QCOMPARE(added.first().first().value<Receipt>().filePath, u"/w/b.pdf"_s);
    }

    void errorWithoutTextSaysErrorAndRetry() {
        Receipt failed = finishedReceipt(u"/w/a.pdf"_s);
        failed.status = ReceiptStatus::error;
        store_->add(failed);
        QVERIFY(waitUntil([&] { return visibleButtons(0).size() == 2; }));
        QVERIFY(table_->model()->index(0, 0).data(Qt::ToolTipRole).toString().contains(u">Error<"));
        QVERIFY(button(0, "retry")->toolTip().contains(u">Retry<"));
        failed.error = u"Gemini API error: 500"_s;
        store_->update(failed);
        QVERIFY(
            waitUntil([&] { return button(0, "retry")->toolTip().contains(u">Gemini API error: 500<"); }));
        QCOMPARE(button(0, "reveal")->toolTip(), u"Reveal in Finder"_s);
    }

    void enterAndDoubleClickOpenTheFile() {
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        QSignalSpy opened(table_.get(), &ReceiptsTable::openRequested);
        table_->selectRow(0);
        QTest::keyClick(table_.get(), Qt::Key_Return);
        QCOMPARE(opened.size(), 1);
        const QPoint cell = table_->visualRect(table_->model()->index(0, Model::dateColumn)).center();
        QTest::mouseClick(table_->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(table_->viewport(), Qt::LeftButton, {}, cell);
        QCOMPARE(opened.size(), 2);
    }

    void keysThatLeadToTheTableSelectARow() {
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        store_->add(finishedReceipt(u"/w/b.pdf"_s));
        focus(Qt::ActiveWindowFocusReason);
        QVERIFY(!table_->selectedReceipt());
        QTest::keyClick(table_.get(), Qt::Key_Down);
        QCOMPARE(table_->selectedReceipt()->filePath, store_->receipts().first().filePath);
        table_->clearSelection();
        focus(Qt::TabFocusReason);
        QCOMPARE(table_->selectedReceipt()->filePath, store_->receipts().first().filePath);
    }

    void tabStopsAtTheButtonsOfTheSelectedRowOnly() {
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        store_->add(finishedReceipt(u"/w/b.pdf"_s));
        QVERIFY(waitUntil([this] { return button(1, "reveal") != nullptr; }));
        table_->selectRow(1);
        QVERIFY(waitUntil([this] { return button(1, "reveal")->focusPolicy() == Qt::TabFocus; }));
        QCOMPARE(button(0, "reveal")->focusPolicy(), Qt::NoFocus);
        table_->selectRow(0);
        QVERIFY(waitUntil([this] { return button(0, "reveal")->focusPolicy() == Qt::TabFocus; }));
        QCOMPARE(button(1, "reveal")->focusPolicy(), Qt::NoFocus);
        table_->setFocus();
        QTest::keyClick(table_.get(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), button(0, "reveal"));
    }

    void severalRowsCanBeSelected() {
        for (const char *const name : {"a", "b", "c"}) {
            store_->add(finishedReceipt(u"/w/"_s + QString::fromLatin1(name)));
        }
        table_->selectRow(0);
        QTest::keyClick(table_.get(), Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(pathsOf(table_->selectedReceipts()), (QStringList{u"/w/a"_s, u"/w/b"_s}));
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/b"_s); // the current one, which details follow
        QTest::keyClick(table_.get(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(table_->selectedReceipts().size(), 3);
        QSignalSpy opened(table_.get(), &ReceiptsTable::openRequested);
        QTest::keyClick(table_.get(), Qt::Key_Return);
        QCOMPARE(opened.size(), 1);
        QCOMPARE(opened.first().first().value<Receipt>().filePath, u"/w/b"_s);
    }

    void stepLeavesOneRowSelected() {
        for (const char *const name : {"a", "b", "c"}) {
            store_->add(finishedReceipt(u"/w/"_s + QString::fromLatin1(name)));
        }
        table_->selectAll();
        table_->selectFurther(2);
        QCOMPARE(pathsOf(table_->selectedReceipts()), QStringList{u"/w/c"_s});
    }

    void longListHasButtonsOnTheScreenOnly() {
        loadManyReceipts(50000);
        QVERIFY(waitUntil([&] { return rowActions() > 0; }));
        QVERIFY(rowActions() < 40);
        for (const int position : {1000000, 20000, 0, 999999}) {
            table_->verticalScrollBar()->setValue(position);
            QCoreApplication::processEvents();
        }
        QVERIFY(waitUntil([&] { return rowActions() > 0 && rowActions() < 40; }));
    }

private:
    static QStringList pathsOf(const QList<Receipt> &receipts) {
        QStringList paths;
        for (const Receipt &receipt : receipts) {
            paths.append(receipt.filePath);
        }
        return paths;
    }

    // The right end of the ink in the date's cell.
    int placeOfTheX(const QString &date) {
        store_->clearAll();
        Receipt receipt = finishedReceipt(u"/w/a.pdf"_s);
        receipt.date = date;
        store_->add(receipt);
        const QRect cell = table_->visualRect(table_->model()->index(0, Model::dateColumn));
        const QImage picture = table_->viewport()->grab(cell.adjusted(2, 2, -2, -2)).toImage();
        for (int x = picture.width() - 1; x >= 0; --x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (qGray(picture.pixel(x, y)) < 128) {
                    return x;
                }
            }
        }
        return -1;
    }

    void loadManyReceipts(int count) {
        QList<Receipt> receipts;
        for (int index = 0; index < count; ++index) {
            receipts.append(finishedReceipt(u"/w/%1.pdf"_s.arg(index)));
        }
        writeFile(home_->receiptsFile(), encodeReceipts(receipts));
        table_.reset();
        store_ = std::make_unique<ReceiptStore>();
        table_ = std::make_unique<ReceiptsTable>(store_.get());
        table_->resize(900, 400);
        table_->show();
    }

    void focus(Qt::FocusReason reason) const {
        QFocusEvent event(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(table_.get(), &event);
    }

    qsizetype rowActions() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return table_->findChildren<RowActions *>().size();
    }

    QToolButton *button(int row, const char *name) const {
        const QWidget *const buttons = table_->indexWidget(table_->model()->index(row, Model::actionsColumn));
        return buttons == nullptr ? nullptr : buttons->findChild<QToolButton *>(QString::fromLatin1(name));
    }

    QStringList visibleButtons(int row) const {
        QStringList names;
        for (const char *const name : {"reveal", "addToPhotos", "retry"}) {
            const QToolButton *const candidate = button(row, name);
            if (candidate != nullptr && candidate->isVisible()) {
                names.append(QString::fromLatin1(name));
            }
        }
        return names;
    }

    std::unique_ptr<TemporaryHome> home_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<ReceiptsTable> table_;
};

int receipts_table_test(int argc, char **argv) {
    return runTest<QApplication, ReceiptsTableTest>(argc, argv);
}
#include "receipts_table_test.moc"
