#include "model/receipt_json.h"
#include "support/conditions.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/receipts_table.h"
#include "ui/main_window/receipts_table_model.h"
#include "ui/main_window/row_actions.h"

#include <QApplication>
#include <QHeaderView>
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

    void columnsHaveTheirHeadersAndWidths() {
        const QStringList headers = {QString(),     u"Date"_s,    u"Amount"_s, u"Location"_s,
                                     u"Category"_s, u"Summary"_s, u"Photos"_s, QString()};
        for (int column = 0; column < headers.size(); ++column) {
            QCOMPARE(table_->model()->headerData(column, Qt::Horizontal).toString(), headers[column]);
        }
        QCOMPARE(table_->columnWidth(Model::statusColumn), 24);
        QCOMPARE(table_->columnWidth(Model::dateColumn), 100);
        QCOMPARE(table_->columnWidth(Model::amountColumn), 90);
        QCOMPARE(table_->columnWidth(Model::locationColumn), 160);
        QCOMPARE(table_->columnWidth(Model::categoryColumn), 100);
        QCOMPARE(table_->columnWidth(Model::photosColumn), 56);
        QCOMPARE(table_->columnWidth(Model::actionsColumn), 64);
    }

    void columnsKeepTheirMinimum() {
        for (const auto &[column, minimum] :
             {std::pair{Model::dateColumn, 90}, std::pair{Model::amountColumn, 80},
              std::pair{Model::locationColumn, 120}, std::pair{Model::categoryColumn, 90}}) {
            table_->setColumnWidth(column, 10);
            QCOMPARE(table_->columnWidth(column), minimum);
        }
    }

    void summaryHasItsMinimumAtEveryWidth_data() {
        QTest::addColumn<int>("width");
        for (const int width : {300, 700, 720, 760, 900, 1600}) {
            QTest::addRow("%d", width) << width;
        }
    }
    void summaryHasItsMinimumAtEveryWidth() {
        QFETCH(int, width);
        table_->resize(width, 400);
        QVERIFY(waitUntil([this] { return table_->columnWidth(Model::summaryColumn) >= 180; }));
        const int room = table_->viewport()->width();
        QCOMPARE(widthOfAllColumns(), std::max(room, 704)); // 704: every column at its minimum
        QVERIFY(table_->columnWidth(Model::dateColumn) >= 90);
        QCOMPARE(table_->columnWidth(Model::dateColumn) == 100, room >= 774);
    }

    void chosenWidthIsKeptWhereTheOthersGiveWay() {
        table_->setColumnWidth(Model::locationColumn, 300);
        QCOMPARE(table_->columnWidth(Model::locationColumn), 300);
        table_->resize(720, 400);
        QVERIFY(waitUntil([this] { return table_->viewport()->width() <= 720; }));
        QCOMPARE(table_->columnWidth(Model::locationColumn), 300);
        QCOMPARE(table_->columnWidth(Model::dateColumn), 90);
        QCOMPARE(table_->columnWidth(Model::summaryColumn), 180);
    }

    void storedWidthsObeyTheMinimaToo() {
        QHeaderView foreign(Qt::Horizontal);
        foreign.setModel(table_->model());
        foreign.setMinimumSectionSize(1);
        for (int column = 0; column < Model::columns; ++column) {
            foreign.resizeSection(column, 7);
        }
        foreign.setSectionResizeMode(Model::summaryColumn, QHeaderView::Stretch);
        table_->restoreColumnState(foreign.saveState());
        QCOMPARE(table_->columnWidth(Model::statusColumn), 24);
        QCOMPARE(table_->columnWidth(Model::dateColumn), 90);
        QCOMPARE(table_->columnWidth(Model::amountColumn), 80);
        QCOMPARE(table_->columnWidth(Model::locationColumn), 120);
        QCOMPARE(table_->columnWidth(Model::categoryColumn), 90);
        QVERIFY(table_->columnWidth(Model::summaryColumn) >= 180);
        QCOMPARE(table_->columnWidth(Model::photosColumn), 56);
        QCOMPARE(table_->columnWidth(Model::actionsColumn), 64);
    }

    void narrowWindowIsNotRemembered() {
        const QByteArray before = table_->columnState();
        table_->resize(704, 400);
        QVERIFY(waitUntil([this] { return table_->columnWidth(Model::dateColumn) == 90; }));
        ReceiptsTable again(store_.get());
        again.resize(900, 400);
        again.show();
        again.restoreColumnState(table_->columnState());
        QCOMPARE(again.columnWidth(Model::dateColumn), 100);
        QCOMPARE(again.columnState(), before);
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

    void clickOnAHeadSortsAsAViewOnly() {
        addForSorting();
        const QStringList newestFirst{u"/w/c"_s, u"/w/b"_s, u"/w/a"_s};
        QCOMPARE(shownPaths(), newestFirst);
        clickHead(Model::amountColumn);
        QCOMPARE(shownPaths(), (QStringList{u"/w/a"_s, u"/w/b"_s, u"/w/c"_s})); // what has none comes last
        clickHead(Model::amountColumn);
        QCOMPARE(shownPaths(), (QStringList{u"/w/b"_s, u"/w/a"_s, u"/w/c"_s}));
        clickHead(Model::amountColumn);
        QCOMPARE(shownPaths(), newestFirst);
        clickHead(Model::locationColumn);
        QCOMPARE(shownPaths(), (QStringList{u"/w/b"_s, u"/w/c"_s, u"/w/a"_s}));
        clickHead(Model::actionsColumn); // nothing to sort by
        QCOMPARE(shownPaths(), newestFirst);
        QCOMPARE(pathsOf(store_->receipts()), newestFirst); // all the while
    }

    void selectionStaysOnItsReceiptsWhenTheOrderChanges() {
        addForSorting();
        table_->selectRow(2);
        clickHead(Model::amountColumn);
        QCOMPARE(pathsOf(table_->selectedReceipts()), QStringList{u"/w/a"_s});
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/a"_s);
        QVERIFY(waitUntil([this] { return visibleButtons(0).size() == 1 && visibleButtons(2).size() == 2; }));
        QSignalSpy retried(table_.get(), &ReceiptsTable::retryRequested);
        QTest::mouseClick(button(2, "retry"), Qt::LeftButton);
        QCOMPARE(retried.first().first().value<Receipt>().filePath, u"/w/c"_s);
    }

    void newReceiptFindsItsPlaceInTheOrder() {
        addForSorting();
        clickHead(Model::amountColumn);
        Receipt receipt = finishedReceipt(u"/w/d"_s);
        receipt.amount = 7;
        store_->add(receipt);
        QCOMPARE(shownPaths(), (QStringList{u"/w/a"_s, u"/w/d"_s, u"/w/b"_s, u"/w/c"_s}));
    }

    void orderIsNotRemembered() {
        addForSorting();
        clickHead(Model::amountColumn);
        const QByteArray state = table_->columnState();
        ReceiptsTable again(store_.get());
        again.restoreColumnState(state);
        QCOMPARE(again.model()->index(0, 0).data(Model::fileNameRole).toString(), u"c"_s);
        QVERIFY(again.horizontalHeader()->sectionsClickable());
    }

    void typedLettersLeadToPlaceOrSummary() {
        addForSorting();
        table_->selectRow(0);
        const int usual = QApplication::keyboardInputInterval();
        QApplication::setKeyboardInputInterval(patience);
        QTest::keyClicks(table_.get(), u"zoo"_s);
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/a"_s);
        endTyping();
        table_->keyboardSearch(u"bäck"_s);
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/c"_s);
        endTyping();
        QTest::keyClicks(table_.get(), u"taxi"_s); // of the summary
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/b"_s);
        QApplication::setKeyboardInputInterval(usual);
    }

    void homeAndEndLeadThroughTheList() {
        addForSorting();
        table_->selectRow(1);
        QTest::keyClick(table_.get(), Qt::Key_End);
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/a"_s);
        QTest::keyClick(table_.get(), Qt::Key_Home);
        QCOMPARE(table_->selectedReceipt()->filePath, u"/w/c"_s);
        QTest::keyClick(table_.get(), Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(table_->selectedReceipts().size(), 3);
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

    // From the oldest to the newest: "a" is cheap, "b" dear, "c" has failed and has no amount.
    void addForSorting() {
        Receipt receipt = finishedReceipt(u"/w/a"_s);
        receipt.scannedAt = u"2025-01-01T00:00:01Z"_s;
        receipt.amount = 5;
        receipt.location = u"Zoo"_s;
        store_->add(receipt);
        receipt = finishedReceipt(u"/w/b"_s);
        receipt.scannedAt = u"2025-01-01T00:00:02Z"_s;
        receipt.amount = 10;
        receipt.location = u"Airport"_s;
        receipt.summary = u"Taxi"_s;
        store_->add(receipt);
        receipt = finishedReceipt(u"/w/c"_s);
        receipt.scannedAt = u"2025-01-01T00:00:03Z"_s;
        receipt.amount.reset();
        receipt.location = u"Bäckerei"_s;
        receipt.status = ReceiptStatus::error;
        store_->add(receipt);
    }

    // The next letter begins anew, however long those before took.
    void endTyping() const {
        QApplication::setKeyboardInputInterval(1);
        letTimePass(20);
        table_->keyboardSearch(QString());
        QApplication::setKeyboardInputInterval(patience);
    }

    void clickHead(Model::Column column) {
        QHeaderView *const header = table_->horizontalHeader();
        const QPoint middle(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                            header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
    }

    QStringList shownPaths() const {
        QStringList paths;
        for (int row = 0; row < table_->model()->rowCount(); ++row) {
            paths.append(u"/w/"_s + table_->model()->index(row, 0).data(Model::fileNameRole).toString());
        }
        return paths;
    }

    int widthOfAllColumns() const {
        int width = 0;
        for (int column = 0; column < Model::columns; ++column) {
            width += table_->columnWidth(column);
        }
        return width;
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
