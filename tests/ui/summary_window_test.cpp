#include "pipeline/app_state.h"
#include "settings/settings_store.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/receipts.h"
#include "support/temporary_home.h"
#include "support/test_program.h"
#include "ui/summary/summary_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class SummaryWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QDir(home_.path(u"data/Fennick"_s)).removeRecursively();
        QDir(home_.path(u"Receipts"_s)).removeRecursively();
        settings_ = std::make_unique<SettingsStore>();
        settings_->setArchiveFolderPath(home_.path(u"Receipts/Done"_s));
        store_ = std::make_unique<ReceiptStore>();
        appState_ = std::make_unique<AppState>(store_.get(), settings_.get());
        window_ = std::make_unique<SummaryWindow>(store_.get(), appState_.get());
        window_->show();
        QVERIFY(QTest::qWaitForWindowActive(window_.get()));
    }
    void cleanup() {
        window_.reset();
        appState_.reset();
        store_.reset();
        settings_.reset();
    }

    void emptyListIsExplained() {
        QVERIFY(find<QLabel>(u"nothingToSum"_s)->isVisible());
        QCOMPARE(find<QLabel>(u"nothingToSum"_s)->text(), u"No receipt has an amount yet."_s);
        QVERIFY(!table()->isVisible());
        QVERIFY(!find<QPushButton>(u"copySpending"_s)->isEnabled());
        QVERIFY(!find<QPushButton>(u"printSpending"_s)->isEnabled());
    }

    void monthsAndCategoriesAreShown() {
        add(u"2024-05-01"_s, u"lunch"_s, u"USD"_s, 10);
        add(u"2024-05-02"_s, u"taxi"_s, u"USD"_s, 30.5);
        add(u"2024-04-02"_s, u"lunch"_s, u"USD"_s, 2);
        QVERIFY(waitUntil([this] { return table()->model()->rowCount() == 3; }));
        QCOMPARE(header(), QStringList({u"Month"_s, QString(), u"Total"_s, u"Taxi"_s, u"Lunch"_s}));
        QCOMPARE(row(0), QStringList({u"May 2024"_s, QString(), u"$40.50"_s, u"$30.50"_s, u"$10.00"_s}));
        QCOMPARE(row(1), QStringList({u"April 2024"_s, QString(), u"$2.00"_s, QString(), u"$2.00"_s}));
        QCOMPARE(row(2), QStringList({u"All"_s, QString(), u"$42.50"_s, u"$30.50"_s, u"$12.00"_s}));
    }

    void barsAreAsLongAsTheirAmounts() {
        add(u"2024-05-01"_s, u"lunch"_s, u"USD"_s, 30);
        add(u"2024-05-01"_s, u"taxi"_s, u"USD"_s, 10);
        add(u"2024-04-01"_s, u"lunch"_s, u"USD"_s, 20);
        QVERIFY(waitUntil([this] { return table()->model()->rowCount() == 3; }));
        const QRect place = barPlace(0);
        const QImage image = table()->viewport()->grab().toImage();
        const auto colourAt = [&image](const QRect &cell, double share) {
            return image.pixelColor(cell.left() + qRound(share * cell.width()), cell.center().y());
        };
        const QColor lunch = legend(3);
        const QColor taxi = legend(4);
        QVERIFY(lunch != taxi);
        QCOMPARE(colourAt(place, 0.7), lunch);
        QCOMPARE(colourAt(place, 0.8), taxi);
        QCOMPARE(colourAt(barPlace(1), 0.45), lunch); // half of the longest
        QVERIFY(colourAt(barPlace(1), 0.55) != lunch);
        QVERIFY(colourAt(barPlace(2), 0.5) != lunch);
    }

    void currenciesAreShownOneAtATime() {
        add(u"2024-05-01"_s, u"lunch"_s, u"USD"_s, 10);
        add(u"2024-05-01"_s, u"lunch"_s, u"USD"_s, 10);
        add(u"2024-05-01"_s, u"lunch"_s, u"EUR"_s, 7);
        QVERIFY(waitUntil([this] { return currencies()->count() == 2; }));
        QCOMPARE(currencies()->accessibleName(), u"Currency"_s);
        QCOMPARE(row(0).at(2), u"$20.00"_s);
        currencies()->setFocus();
        QTest::keyClick(currencies(), Qt::Key_Down);
        QVERIFY(currencies()->currentText().startsWith(u"EUR"_s));
        QCOMPARE(row(0).at(2), u"€7.00"_s);
        add(u"2024-05-02"_s, u"lunch"_s, u"EUR"_s, 1);
        QVERIFY(waitUntil([this] { return row(0).at(2) == u"€8.00"_s; })); // the choice is kept
    }

    void archivesAreIncludedIfWanted_data() {
        QTest::addColumn<ExportService::Format>("format");
        QTest::newRow("csv") << ExportService::Format::csv;
        QTest::newRow("html") << ExportService::Format::html;
    }
    void archivesAreIncludedIfWanted() {
        QFETCH(ExportService::Format, format);
        add(u"2024-05-01"_s, u"lunch"_s, u"USD"_s, 10);
        appState_->archiveAndClear(format);
        add(u"2024-06-01"_s, u"taxi"_s, u"USD"_s, 1);
        QVERIFY(waitUntil([this] { return table()->model()->rowCount() == 2; }));
        find<QCheckBox>(u"includeArchives"_s)->click();
        QVERIFY(waitUntil([this] { return table()->model()->rowCount() == 3; }));
        QCOMPARE(row(2).at(2), u"$11.00"_s);
        find<QCheckBox>(u"includeArchives"_s)->click();
        QCOMPARE(table()->model()->rowCount(), 2);
    }

    void tableIsCopiedForSpreadsheets() {
        add(u"2024-05-01"_s, u"lunch"_s, u"USD"_s, 10);
        QVERIFY(waitUntil([this] { return table()->model()->rowCount() == 2; }));
        QTest::keySequence(window_.get(), QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 u"Month\tTotal\tLunch\nMay 2024\t$10.00\t$10.00\nAll\t$10.00\t$10.00\n"_s);
    }

    void printedPageHasTheTable() {
        add(u"2024-05-01"_s, u"<b>"_s, u"USD"_s, 10);
        QVERIFY(waitUntil([this] { return table()->model()->rowCount() == 2; }));
        const QString page = window_->printedPage();
        QVERIFY(page.contains(u"<h2>Summary – USD"_s));
        QVERIFY(page.contains(u"May 2024"_s));
        QVERIFY(page.contains(u"&lt;b&gt;"_s));
        QVERIFY(page.contains(u"$10.00"_s));
    }

private:
    template <typename Widget>
    Widget *find(const QString &objectName) const {
        return window_->findChild<Widget *>(objectName);
    }
    QTableView *table() const { return find<QTableView>(u"spending"_s); }
    QComboBox *currencies() const { return find<QComboBox>(u"summaryCurrency"_s); }

    // Without the margin around the bar.
    QRect barPlace(int row) const {
        return table()->visualRect(table()->model()->index(row, 1)).adjusted(5, 5, -5, -5);
    }

    QColor legend(int column) const {
        const QVariant mark = table()->model()->headerData(column, Qt::Horizontal, Qt::DecorationRole);
        return mark.value<QPixmap>().toImage().pixelColor(0, 0);
    }

    QStringList header() const {
        QStringList names;
        for (int column = 0; column < table()->model()->columnCount(); ++column) {
            names.append(table()->model()->headerData(column, Qt::Horizontal).toString());
        }
        return names;
    }

    QStringList row(int row) const {
        QStringList texts;
        for (int column = 0; column < table()->model()->columnCount(); ++column) {
            texts.append(table()->model()->index(row, column).data().toString());
        }
        return texts;
    }

    void add(const QString &date, const QString &category, const QString &currency, double amount) {
        const QString folder = home_.path(u"Receipts"_s);
        QDir().mkpath(folder);
        Receipt receipt = finishedReceipt(folder + u"/%1.pdf"_s.arg(++number_));
        receipt.date = date;
        receipt.category = category;
        receipt.currency = currency;
        receipt.amount = amount;
        writeFile(receipt.filePath, "receipt");
        store_->add(receipt);
    }

    TemporaryHome home_;
    PrivateSession session_;
    int number_ = 0;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<ReceiptStore> store_;
    std::unique_ptr<AppState> appState_;
    std::unique_ptr<SummaryWindow> window_;
};

int summary_window_test(int argc, char **argv) {
    return runTest<QApplication, SummaryWindowTest>(argc, argv);
}
#include "summary_window_test.moc"
