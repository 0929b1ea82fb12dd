#include "export/export_service.h"
#include "export/ledger_fixtures.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QLocale>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString emptyReceiptLine = u",,,,,misc,%1,a.pdf,processing,2025-03-04T17:05:09Z\n"_s;

Receipt emptyReceipt() {
    Receipt receipt = freshReceipt(u"/receipts/a.pdf"_s);
    receipt.scannedAt = u"2025-03-04T17:05:09Z"_s;
    return receipt;
}

// The ledger without its line of column names.
QString linesOf(const QList<Receipt> &receipts) {
    const QString csv = ExportService::buildCSV(receipts);
    return csv.mid(csv.indexOf(u'\n') + 1);
}

QString lineWithSummary(const QString &summary) {
    Receipt receipt = emptyReceipt();
    receipt.summary = summary;
    return linesOf({receipt});
}

} // namespace

class CsvLedgerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void writesTheBatchByteForByte() {
        QCOMPARE(ExportService::buildCSV(batch()).toUtf8(), expectedFile(u"ledger_batch.csv"_s));
    }

    void noReceiptsGiveTheColumnNamesAlone() {
        QCOMPARE(ExportService::buildCSV({}).toUtf8(), expectedFile(u"ledger_empty.csv"_s));
    }

    void absentValuesAreEmptyFields() {
        QCOMPARE(lineWithSummary(QString()), emptyReceiptLine.arg(QString()));
    }

    void onlyQuotesCommasAndLineBreaksAskForQuotes_data() {
        QTest::addColumn<QString>("summary");
        QTest::addColumn<QString>("field");
        const auto add = [](const char *name, const char *summary, const char *field) {
            QTest::newRow(name) << QString::fromUtf8(summary) << QString::fromUtf8(field);
        };
        add("comma", "a,b", "\"a,b\"");
        add("line feed", "a\nb", "\"a\nb\"");
        add("carriage return", "a\rb", "\"a\rb\"");
        add("carriage return and line feed", "a\r\nb", "\"a\r\nb\"");
        add("quote", "a\"b", "\"a\"\"b\"");
        add("quoted text", "\"a\"", "\"\"\"a\"\"\"");
        add("quote alone", "\"", "\"\"\"\"");
        add("quotes in a row", "\"\"", "\"\"\"\"\"\"");
        add("quote and combining accent", "\"\u0301", "\"\"\"\u0301\"");
        add("blanks only", "   ", "   ");
        add("blanks around", " a ", " a ");
        add("tab", "a\tb", "a\tb");
        add("semicolon", "a;b", "a;b");
        add("apostrophe", "a'b", "a'b");
        add("line separator of Unicode", "a\u2028b", "a\u2028b");
        add("wide comma", "a，b", "a，b");
        add("text that looks like a formula", "=1+1", "=1+1");
    }
    void onlyQuotesCommasAndLineBreaksAskForQuotes() {
        QFETCH(QString, summary);
        QFETCH(QString, field);
        QCOMPARE(lineWithSummary(summary), emptyReceiptLine.arg(field));
    }

    void everyColumnIsQuotedWhenNeeded() {
        Receipt receipt = emptyReceipt();
        const QString text = u"a,b"_s;
        receipt.date = receipt.time = receipt.currency = receipt.location = text;
        receipt.category = receipt.summary = receipt.fileName = receipt.scannedAt = text;
        receipt.amount = 1;
        QCOMPARE(linesOf({receipt}), u"\"a,b\",\"a,b\",1.00,\"a,b\",\"a,b\",\"a,b\",\"a,b\","
                                     "\"a,b\",processing,\"a,b\"\n"_s);
    }

    void amountHasNoSymbolWhateverTheLocale() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        Receipt receipt = emptyReceipt();
        receipt.amount = 1234.5;
        receipt.currency = u"EUR"_s;
        QCOMPARE(linesOf({receipt}), u",,1234.50,EUR,,misc,,a.pdf,processing,2025-03-04T17:05:09Z\n"_s);
    }

    void momentOfIntakeIsWrittenAsStored() {
        Receipt receipt = emptyReceipt();
        receipt.scannedAt = u"yesterday"_s;
        QCOMPARE(linesOf({receipt}), u",,,,,misc,,a.pdf,processing,yesterday\n"_s);
    }

    void receiptsKeepTheirOrder() {
        const QList<Receipt> receipts = batch();
        const QString forwards = linesOf({receipts[0], receipts[1]});
        QCOMPARE(linesOf({receipts[1], receipts[0]}), linesOf({receipts[1]}) + linesOf({receipts[0]}));
        QCOMPARE(forwards, linesOf({receipts[0]}) + linesOf({receipts[1]}));
    }

    void brokenSurrogatesBecomeReplacementCharacters() {
        const QString broken = QString(QChar(0xD83D)) + u"x"_s + QChar(0xDE00);
        QCOMPARE(lineWithSummary(broken).toUtf8(), emptyReceiptLine.arg(u"\uFFFDx\uFFFD"_s).toUtf8());
        QCOMPARE(lineWithSummary(u"😀"_s).toUtf8(), emptyReceiptLine.arg(u"😀"_s).toUtf8());
    }

    void clipboardHasTheSameValuesBetweenTabs() {
        QLocale::setDefault(QLocale::c());
        QList<Receipt> receipts = batch();
        const QStringList lines = ExportService::buildTabSeparated(receipts).split(u'\n');
        QCOMPARE(lines.size(), receipts.size() + 2); // with the column names, and nothing after the last one
        QCOMPARE(
            lines.first(),
            u"Date\tTime\tAmount\tCurrency\tLocation\tCategory\tSummary\tFile Name\tStatus\tScanned At"_s);
        for (const QString &line : lines.first(lines.size() - 1)) {
            QCOMPARE(line.count(u'\t'), 9);
        }
    }

    void whatBreaksACellIsHarmlessOnTheClipboard_data() {
        QTest::addColumn<QString>("summary");
        QTest::addColumn<QString>("cell");
        QTest::newRow("tab") << u"a\tb"_s << u"a b"_s;
        QTest::newRow("line feed") << u"a\r\nb"_s << u"a  b"_s;
        QTest::newRow("line separator") << u"a\u2028b"_s << u"a b"_s;
        QTest::newRow("no-break space") << u"a\u00A0b"_s << u"a\u00A0b"_s;
        QTest::newRow("quote inside") << u"at \"a\""_s << u"at \"a\""_s;
        QTest::newRow("quote in front") << u"\"a\" b"_s << u"\"\"\"a\"\" b\""_s;
    }
    void whatBreaksACellIsHarmlessOnTheClipboard() {
        QFETCH(QString, summary);
        QFETCH(QString, cell);
        Receipt receipt = emptyReceipt();
        receipt.summary = summary;
        const QString line = ExportService::buildTabSeparated({receipt}).split(u'\n').at(1);
        QCOMPARE(line, u"\t\t\t\t\tmisc\t%1\ta.pdf\tprocessing\t2025-03-04T17:05:09Z"_s.arg(cell));
    }
};

int csv_ledger_test(int argc, char **argv) {
    return runTest<QCoreApplication, CsvLedgerTest>(argc, argv);
}
#include "csv_ledger_test.moc"
