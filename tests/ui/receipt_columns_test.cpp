#include "support/conditions.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/receipts_table.h"
#include "ui/main_window/receipts_table_model.h"

#include <QApplication>
#include <QHeaderView>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Model = ReceiptsTableModel;

class ReceiptColumnsTest : public QObject {
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

private:
    int widthOfAllColumns() const {
        int width = 0;
        for (int column = 0; column < Model::columns; ++column) {
            width += table_->columnWidth(column);
        }
        return width;
    }

    std::unique_ptr<TemporaryHome> home_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<ReceiptsTable> table_;
};

int receipt_columns_test(int argc, char **argv) {
    return runTest<QApplication, ReceiptColumnsTest>(argc, argv);
}
#include "receipt_columns_test.moc"
