#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/main_window/receipts_table_model.h"
#include "ui/widgets/symbols.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLocale>
#include <QSignalSpy>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Model = ReceiptsTableModel;

class ReceiptsTableModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        home_ = std::make_unique<TemporaryHome>();
        store_ = std::make_unique<ReceiptStore>();
        model_ = std::make_unique<Model>(store_.get());
        tester_ = std::make_unique<QAbstractItemModelTester>(model_.get());
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }

    void columnsWithoutAHeaderHaveASpokenOne() {
        const ReceiptStore store;
        const ReceiptsTableModel model(&store);
        for (const auto &[column, spoken] :
             {std::pair{Model::statusColumn, u"Status"_s}, std::pair{Model::dateColumn, u"Date"_s},
              std::pair{Model::actionsColumn, u"Actions"_s}}) {
            QCOMPARE(model.headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString(), spoken);
        }
    }

    void rowsFollowTheStoreOneByOne() {
        QSignalSpy inserted(model_.get(), &Model::rowsInserted);
        QSignalSpy changed(model_.get(), &Model::dataChanged);
        QSignalSpy reset(model_.get(), &Model::modelReset);
        Receipt receipt = finishedReceipt(u"/w/a.pdf"_s);
        store_->add(receipt);
        store_->add(finishedReceipt(u"/w/b.pdf"_s));
        QCOMPARE(inserted.size(), 2);
        QCOMPARE(model_->rowCount(), 2);
        receipt.summary = u"changed"_s;
        store_->update(receipt);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toModelIndex().row(), 0);
        QVERIFY(reset.isEmpty());
        store_->clearAll();
        QCOMPARE(model_->rowCount(), 0);
    }

    void removedReceiptsLeaveTheirRows() {
        const Receipt receipt = finishedReceipt(u"/w/a.pdf"_s);
        store_->add(receipt);
        store_->add(finishedReceipt(u"/w/b.pdf"_s));
        QSignalSpy removed(model_.get(), &Model::rowsRemoved);
        store_->remove({receipt.id});
        QCOMPARE(removed.size(), 1);
        QCOMPARE(model_->rowCount(), 1);
        QCOMPARE(model_->receipt(0).filePath, u"/w/b.pdf"_s);
    }

    void receiptWithAnotherMomentMoves() {
        Receipt older = finishedReceipt(u"/w/a.pdf"_s);
        older.scannedAt = u"2025-01-01T00:00:01Z"_s;
        Receipt newer = finishedReceipt(u"/w/b.pdf"_s);
        newer.scannedAt = u"2025-01-01T00:00:02Z"_s;
        store_->add(older);
        store_->add(newer);
        QSignalSpy moved(model_.get(), &Model::rowsMoved);
        older.scannedAt = u"2025-01-01T00:00:03Z"_s;
        store_->update(older);
        newer.scannedAt = u"2025-01-01T00:00:04Z"_s;
        store_->update(newer);
        newer.scannedAt = u"2025-01-01T00:00:01Z"_s;
        store_->update(newer);
        QCOMPARE(moved.size(), 3);
        QCOMPARE(store_->receipts().first().id, older.id);
    }

    void cellsShowTheReceipt() {
        store_->add(finishedReceipt(u"/w/a.pdf"_s));
        QCOMPARE(text(Model::dateColumn), u"2024-05-01"_s);
        QCOMPARE(text(Model::amountColumn), u"$23.50"_s);
        QCOMPARE(text(Model::locationColumn), u"Mario's Cafe"_s);
        QCOMPARE(text(Model::categoryColumn), u"Lunch"_s);
        QCOMPARE(text(Model::summaryColumn), u"Lunch at Mario's Cafe for $23.50"_s);
    }

    void absentValuesShowADash() {
        store_->add(freshReceipt(u"/w/a.pdf"_s));
        for (const int column :
             {Model::dateColumn, Model::amountColumn, Model::locationColumn, Model::summaryColumn}) {
            QCOMPARE(text(column), u"—"_s);
        }
        QCOMPARE(text(Model::categoryColumn), u"Misc"_s);
    }

    void statusIsToldInWordsToo() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        store_->add(receipt);
        QCOMPARE(accessibleStatus(), u"Processing"_s);
        receipt.status = ReceiptStatus::done;
        store_->update(receipt);
        QCOMPARE(accessibleStatus(), u"Done"_s);
        receipt.status = ReceiptStatus::error;
        store_->update(receipt);
        QCOMPARE(accessibleStatus(), u"Error"_s);
        receipt.error = u"Gemini API error: 500"_s;
        store_->update(receipt);
        QCOMPARE(accessibleStatus(), u"Gemini API error: 500"_s);
    }

    void symbolsTellStatusAndPhotos() {
        const auto picture = [](const QIcon &icon) {
            return icon.pixmap(16).toImage();
        };
        const auto shown = [&](int row, int column) {
            return picture(model_->index(row, column).data(Qt::DecorationRole).value<QIcon>());
        };
        Receipt failed = finishedReceipt(u"/w/a.pdf"_s);
        failed.status = ReceiptStatus::error;
        failed.scannedAt = u"2025-01-01T00:00:03Z"_s;
        Receipt done = finishedReceipt(u"/w/b.pdf"_s);
        done.scannedAt = u"2025-01-01T00:00:02Z"_s;
        done.addedToPhotos = true;
        Receipt processing = finishedReceipt(u"/w/c.pdf"_s);
        processing.status = ReceiptStatus::processing;
        processing.scannedAt = u"2025-01-01T00:00:01Z"_s;
        for (const Receipt &receipt : {failed, done, processing}) {
            store_->add(receipt);
        }
        const QImage check = picture(symbolIcon(Symbol::done, Tint::success));
        const QImage warning = picture(symbolIcon(Symbol::warning, Tint::warning));
        QVERIFY(check != warning);
        QCOMPARE(shown(0, ReceiptsTableModel::statusColumn), warning);
        QCOMPARE(shown(1, ReceiptsTableModel::statusColumn), check);
        QVERIFY(!model_->index(2, ReceiptsTableModel::statusColumn).data(Qt::DecorationRole).isValid());
        QCOMPARE(shown(1, ReceiptsTableModel::photosColumn), check);
        QVERIFY(!model_->index(0, ReceiptsTableModel::photosColumn).data(Qt::DecorationRole).isValid());
        QCOMPARE(model_->index(0, ReceiptsTableModel::photosColumn).data(Qt::ForegroundRole).value<QColor>(),
                 tintColor(Tint::secondary, QApplication::palette()));
    }

    // Filled drawings: their ink covers most of the symbol, not its outline alone.
    void symbolsOfStatesAreFilled() {
        for (const Symbol symbol :
             {Symbol::done, Symbol::warning, Symbol::keySaved, Symbol::refused, Symbol::watchedFolder}) {
            const QImage picture = symbolIcon(symbol).pixmap(48).toImage();
            int ink = 0;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) {
                    ink += qAlpha(picture.pixel(x, y)) > 128 ? 1 : 0;
                }
            }
            QVERIFY2(ink > 48 * 48 * 2 / 5, qPrintable(QString::number(ink)));
        }
    }

    void onlyReceiptsInPhotosSayThatTheyAreThere() {
        Receipt receipt = finishedReceipt(u"/w/a.pdf"_s);
        receipt.addedToPhotos = false;
        store_->add(receipt);
        const auto photos = [this](int role) {
            return model_->index(0, Model::photosColumn).data(role).toString();
        };
        QVERIFY(photos(Qt::ToolTipRole).isEmpty());
        QCOMPARE(photos(Qt::DisplayRole), u"—"_s);
        receipt.addedToPhotos = true;
        store_->update(receipt);
        QVERIFY(photos(Qt::ToolTipRole).contains(u">Added to Photos<"));
    }

    void namesThatDisguiseAnExtensionAreShownAsWhatTheyAre() {
        Receipt receipt = finishedReceipt(u"/w/bill\u202Efdp.exe"_s);
        receipt.location = u"Two\nlines"_s;
        store_->add(receipt);
        const QModelIndex summary = model_->index(0, Model::summaryColumn);
        const QString shown = u"bill\uFFFDfdp.exe"_s;
        QCOMPARE(summary.data(Model::fileNameRole).toString(), shown);
        QVERIFY(summary.data(Qt::ToolTipRole).toString().contains(shown));
        QVERIFY(summary.data(Qt::AccessibleTextRole).toString().contains(shown));
        QCOMPARE(model_->index(0, Model::locationColumn).data().toString(), u"Two lines"_s);
    }

    void toolTipTakesNoMarkupFromOutside() {
        Receipt receipt = freshReceipt(u"/w/a.pdf"_s);
        receipt.status = ReceiptStatus::error;
        receipt.error = u"<b>&"_s;
        store_->add(receipt);
        const QString toolTip = model_->index(0, Model::statusColumn).data(Qt::ToolTipRole).toString();
        QVERIFY(toolTip.contains(u"&lt;b&gt;&amp;"));
    }

private:
    QString text(int column) const { return model_->index(0, column).data().toString(); }

    QString accessibleStatus() const {
        return model_->index(0, Model::statusColumn).data(Qt::AccessibleTextRole).toString();
    }

    std::unique_ptr<TemporaryHome> home_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<Model> model_;
    std::unique_ptr<QAbstractItemModelTester> tester_;
};

int receipts_table_model_test(int argc, char **argv) {
    return runTest<QApplication, ReceiptsTableModelTest>(argc, argv);
}
#include "receipts_table_model_test.moc"
