#include "export/ledger_reader.h"
#include "ledger_fixtures.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::ExportService;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

Receipt awkwardReceipt() {
    Receipt receipt = finishedReceipt(u"/w/a, \"b\" & <c>.pdf"_s);
    receipt.location = u"Mario's \"Cafe\", <Lunch> & more"_s;
    receipt.summary = u"two\nlines"_s;
    receipt.amount = -1234.5;
    receipt.currency = u"EUR"_s;
    return receipt;
}

} // namespace

class LedgerReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void csvLedgerIsReadAsItWasWritten() {
        const Receipt receipt = awkwardReceipt();
        const QList<LedgerRow> rows =
            readLedger(buildCSV({receipt, finishedReceipt(u"/w/d.pdf"_s)}), Format::csv);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.first().date, receipt.date);
        QCOMPARE(rows.first().amount, receipt.amount);
        QCOMPARE(rows.first().currency, receipt.currency);
        QCOMPARE(rows.first().location, receipt.location);
        QCOMPARE(rows.first().category, receipt.category);
        QCOMPARE(rows.first().fileName, receipt.fileName);
        QVERIFY(rows.first().amountText.isEmpty());
        QCOMPARE(rows.last().fileName, u"d.pdf"_s);
    }

    void csvLedgerOfASpreadsheetIsRead() {
        const QString ledger = u"\uFEFFAmount,File Name,Date\r\n7.5,\"a.pdf\",2024-05-01\r\n,b.pdf,\r\n"_s;
        const QList<LedgerRow> rows = readLedger(ledger, Format::csv);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.first().amount, 7.5);
        QCOMPARE(rows.first().date, u"2024-05-01"_s);
        QVERIFY(!rows.last().amount);
        QCOMPARE(rows.last().fileName, u"b.pdf"_s);
    }

    void htmlLedgerIsReadAsItWasWritten() {
        const Receipt receipt = awkwardReceipt();
        Receipt without = finishedReceipt(u"/w/d.pdf"_s);
        without.amount.reset();
        without.date.reset();
        const QList<LedgerRow> rows = readLedger(buildHTML({receipt, without}), Format::html);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.first().date, receipt.date);
        QCOMPARE(rows.first().amount, receipt.amount);
        QCOMPARE(rows.first().amountText, formatAmount(receipt.amount, receipt.currency));
        QCOMPARE(rows.first().location, receipt.location);
        QCOMPARE(rows.first().fileName, receipt.fileName);
        QVERIFY(rows.first().currency.isEmpty());
        QVERIFY(!rows.last().amount);
        QVERIFY(rows.last().amountText.isEmpty());
        QVERIFY(rows.last().date.isEmpty());
    }

    void damagedLedgerGivesTheRowsBeforeTheDamage_data() {
        QTest::addColumn<QString>("ledger");
        QTest::addColumn<Format>("format");
        QTest::addColumn<int>("rows");
        const QList<Receipt> receipts{finishedReceipt(u"/w/a.pdf"_s), finishedReceipt(u"/w/b.pdf"_s)};
        const QString csv = buildCSV(receipts);
        const QString html = buildHTML(receipts);
        QTest::newRow("csv, cut off in a row") << csv.chopped(40) << Format::csv << 1;
        QTest::newRow("csv, an open quote") << csv + u"\"2024"_s << Format::csv << 2;
        QTest::newRow("csv, without names") << u"1,2\n3,4\n"_s << Format::csv << 1;
        QTest::newRow("html, cut off") << html.first(html.lastIndexOf(u"<td>"_s)) << Format::html << 1;
        QTest::newRow("html, a control character")
            << QString(html).replace(html.lastIndexOf(u"<td>"_s), 4, u"<td>\u0001"_s) << Format::html << 1;
        QTest::newRow("nothing") << QString() << Format::csv << 0;
        QTest::newRow("no page") << u"<tbody"_s << Format::html << 0;
    }
    void damagedLedgerGivesTheRowsBeforeTheDamage() {
        QFETCH(QString, ledger);
        QFETCH(Format, format);
        QFETCH(int, rows);
        QCOMPARE(readLedger(ledger, format).size(), rows);
    }
};

int ledger_reader_test(int argc, char **argv) {
    return runTest<QCoreApplication, LedgerReaderTest>(argc, argv);
}
#include "ledger_reader_test.moc"
