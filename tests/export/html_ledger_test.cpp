#include "export/export_service.h"
#include "export/ledger_fixtures.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QLocale>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

struct DatedLedger {
    QString html;
    QString moment;
};

// A ledger and the moment it shows; builds it anew when the minute turned meanwhile.
DatedLedger datedLedger(const QList<Receipt> &receipts) {
    for (;;) {
        const QString before = ExportService::longDateTime();
        const QString html = ExportService::buildHTML(receipts);
        if (ExportService::longDateTime() == before) {
            return {html, before};
        }
    }
}

QByteArray expectedPage(const QString &name, const QString &moment) {
    return expectedFile(name).replace("@EXPORTED_AT@"_ba, moment.toUtf8());
}

Receipt receiptOf(double amount, const char *currency) {
    Receipt receipt = freshReceipt(u"/receipts/a.pdf"_s);
    receipt.amount = amount;
    receipt.currency = QString::fromLatin1(currency);
    return receipt;
}

QString between(const QString &text, const QString &start, const QString &end) {
    const qsizetype from = text.indexOf(start) + start.size();
    return text.mid(from, text.indexOf(end, from) - from);
}

QString totalOf(const QList<Receipt> &receipts) {
    return between(ExportService::buildHTML(receipts), u"Total: "_s, u"</div>"_s);
}

QString amountCellOf(const Receipt &receipt) {
    return between(ExportService::buildHTML({receipt}), u"<td class=\"num\">"_s, u"</td>"_s);
}

QString summaryCellOf(const QString &summary) {
    Receipt receipt = freshReceipt(u"/receipts/a.pdf"_s);
    receipt.summary = summary;
    return between(ExportService::buildHTML({receipt}), u"<td>misc</td>\n        <td>"_s, u"</td>"_s);
}

} // namespace

class HtmlLedgerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void writesThePageByteForByte_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<qsizetype>("count");
        QTest::newRow("five receipts") << u"ledger_batch.html"_s << qsizetype(5);
        QTest::newRow("one receipt") << u"ledger_one.html"_s << qsizetype(1);
        QTest::newRow("no receipts") << u"ledger_empty.html"_s << qsizetype(0);
    }
    void writesThePageByteForByte() {
        QFETCH(QString, file);
        QFETCH(qsizetype, count);
        const DatedLedger ledger = datedLedger(batch().first(count));
        QCOMPARE(ledger.html.toUtf8(), expectedPage(file, ledger.moment));
    }

    void titleAndHeadingShowTheSameMoment() {
        const QString html = ExportService::buildHTML({});
        const QString title = between(html, u"<title>Receipts — "_s, u"</title>"_s);
        QVERIFY(!title.isEmpty());
        QVERIFY(html.contains(u"Exported "_s + title + u" · 0 receipts</div>"_s));
    }

    void textIsEscaped_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("escaped");
        const auto add = [](const char *text, const char *escaped) {
            QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(escaped);
        };
        add("&", "&amp;");
        add("<", "&lt;");
        add(">", "&gt;");
        add("\"", "&quot;");
        add("'", "'");
        add("a&<>\"'b", "a&amp;&lt;&gt;&quot;'b");
        add("&amp;", "&amp;amp;");
        add("&lt;", "&amp;lt;");
        add("&&", "&amp;&amp;");
        add("<\u0338", "&lt;\u0338");
        add("tab\tand\nline", "tab\tand\nline");
    }
    void textIsEscaped() {
        QFETCH(QString, text);
        QTEST(summaryCellOf(text), "escaped");
    }

    void everyCellIsEscaped() {
        Receipt receipt = freshReceipt(u"/receipts/a.pdf"_s);
        const QString markup = u"<i>"_s;
        receipt.date = receipt.time = receipt.location = markup;
        receipt.category = receipt.summary = receipt.fileName = markup;
        const QString html = ExportService::buildHTML({receipt});
        QCOMPARE(html.count(u"&lt;i&gt;"_s), 6);
        QVERIFY(!html.contains(markup));
    }

    void neitherCurrencyNorStatusNorIntakeHasAColumn() {
        Receipt receipt = receiptOf(1, "EUR");
        receipt.scannedAt = u"2025-03-04T17:05:09Z"_s;
        const QString html = ExportService::buildHTML({receipt});
        QVERIFY(!html.contains(receipt.scannedAt));
        QVERIFY(!html.contains(u"EUR"_s));
        QVERIFY(!html.contains(u"processing"_s));
    }

    void absentAmountIsADashAndCountsAsZero() {
        Receipt receipt = receiptOf(0, "EUR");
        receipt.amount.reset();
        QCOMPARE(amountCellOf(receipt), u"—"_s);
        QCOMPARE(totalOf({receipt, receiptOf(2, "EUR")}), u"2.00"_s);
        QCOMPARE(totalOf({receipt}), u"0.00"_s);
    }

    // Intended: one plain number, also over several currencies.
    void totalAddsAllCurrencies() {
        QCOMPARE(totalOf({receiptOf(10.25, "USD"), receiptOf(5, "EUR"), receiptOf(1000, "JPY")}),
                 u"1015.25"_s);
    }

    void totalAddsReceiptsOfEveryStatus() {
        QList<Receipt> receipts{receiptOf(1, "USD"), receiptOf(2, "USD"), receiptOf(4, "USD")};
        receipts[0].status = ReceiptStatus::done;
        receipts[1].status = ReceiptStatus::error;
        receipts[2].status = ReceiptStatus::processing;
        QCOMPARE(totalOf(receipts), u"7.00"_s);
    }

    void totalOfRefundsIsNegative() {
        QCOMPARE(totalOf({receiptOf(1, "USD"), receiptOf(-3.5, "USD")}), u"-2.50"_s);
    }

    void amountsFollowTheUsersLocale() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(amountCellOf(receiptOf(1234.5, "EUR")), u"1.234,50\u00A0€"_s);
        QCOMPARE(totalOf({receiptOf(1234.5, "EUR")}), u"1234.50"_s);
    }

    void currenciesInTurnKeepTheirSymbols() {
        const QString html = ExportService::buildHTML(
            {receiptOf(1, "EUR"), receiptOf(2, "USD"), receiptOf(3, "EUR"), receiptOf(4, "JPY")});
        for (const char *amount : {">€1.00<", ">$2.00<", ">€3.00<", ">¥4.00<"}) {
            QVERIFY2(html.contains(QString::fromUtf8(amount)), amount);
        }
    }

    void rowsKeepTheOrderOfTheReceipts() {
        const QString html = ExportService::buildHTML({receiptOf(2, "USD"), receiptOf(1, "USD")});
        QVERIFY(html.indexOf(u"$2.00"_s) < html.indexOf(u"$1.00"_s));
    }

    void brokenSurrogatesBecomeReplacementCharacters() {
        QCOMPARE(summaryCellOf(QString(QChar(0xD83D)) + u'<').toUtf8(), QByteArray("\uFFFD&lt;"));
    }
};

int html_ledger_test(int argc, char **argv) {
    return runTest<QCoreApplication, HtmlLedgerTest>(argc, argv);
}
#include "html_ledger_test.moc"
