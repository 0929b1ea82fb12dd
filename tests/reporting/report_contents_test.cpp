#include "export/export_service.h"
#include "export/report_totals.h"
#include "reporting/report_contents.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QLocale>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

Receipt spent(double amount, const std::optional<QString> &currency, const QString &category) {
    Receipt receipt = finishedReceipt(u"/w/a.pdf"_s);
    receipt.amount = amount;
    receipt.currency = currency;
    receipt.category = category;
    return receipt;
}

QStringList linesOf(const QList<ReportTotal> &totals) {
    QStringList lines;
    for (const ReportTotal &total : totals) {
        lines.append(total.total.name + u" = "_s + total.total.amount);
        for (const ReportTotal::Line &part : total.parts) {
            lines.append(u"  "_s + part.name + u" = "_s + part.amount);
        }
    }
    return lines;
}

} // namespace

// What a report says of the receipts.
class ReportContentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(u"en_US"_s)); }

    void currenciesAreNeverAdded() {
        const ReportDescription report = describeReport(
            {spent(10, u"USD"_s, u"lunch"_s), spent(5, u"EUR"_s, u"taxi"_s), spent(2.5, u"USD"_s, u"taxi"_s),
             spent(1, {}, u"misc"_s), spent(7, u"USD"_s, u"lunch"_s)},
            {}, {});
        QCOMPARE(linesOf(report.totals),
                 (QStringList{u"EUR = €5.00"_s, u"  taxi = €5.00"_s, u"USD = $19.50"_s, u"  lunch = $17.00"_s,
                              u"  taxi = $2.50"_s, u"Without a currency = 1.00"_s, u"  misc = 1.00"_s}));
    }

    void refundsLowerTheTotal() {
        const auto totals =
            totalsByCurrency({spent(10, u"USD"_s, u"lunch"_s), spent(-4, u"usd"_s, u"lunch"_s)});
        QCOMPARE(totals.size(), 1);
        QCOMPARE(totals.first().amount, 6.0);
    }

    void receiptsWithoutAnAmountDoNotCount() {
        Receipt failed = freshReceipt(u"/w/failed.pdf"_s);
        failed.status = ReceiptStatus::error;
        QVERIFY(totalsByCurrency({failed}).isEmpty());
        const ReportDescription report = describeReport({failed}, {}, {});
        QCOMPARE(report.rows.first().line, u"No. 1"_s);
        QCOMPARE(report.rows.first().cells, (QStringList{u"1"_s, u"—"_s, u"—"_s, u"misc"_s, u""_s, u"—"_s}));
    }

    void rowsAreNumberedInTheOrderOfTheLedger() {
        const QList<Receipt> receipts{finishedReceipt(u"/w/b.pdf"_s), finishedReceipt(u"/w/a.pdf"_s)};
        const ReportDescription report = describeReport(receipts, {}, u"/w"_s);
        QCOMPARE(report.rows.at(0).filePath, u"/w/b.pdf"_s);
        QCOMPARE(report.rows.at(1).line, u"No. 2 · 2024-05-01 · Mario's Cafe · $23.50"_s);
        QCOMPARE(report.csv, ExportService::buildCSV(receipts));
        QCOMPARE(report.folder, u"/w"_s);
    }

    void headNamesPersonPeriodAndNumber() {
        Receipt early = finishedReceipt(u"/w/a.pdf"_s);
        early.date = u"2024-02-03"_s;
        QCOMPARE(describeReport({finishedReceipt(u"/w/b.pdf"_s), early}, u"Jane Doe"_s, {}).subtitles,
                 (QStringList{u"Jane Doe"_s, u"2024-02-03 – 2024-05-01"_s, u"2 receipts"_s}));
        early.date.reset();
        QCOMPARE(describeReport({early}, {}, {}).subtitles, QStringList{u"1 receipt"_s});
    }

    void descriptionSurvivesItsWayToTheProcess() {
        const ReportDescription report =
            describeReport({finishedReceipt(u"/w/\u00e9 \"x\".pdf"_s)}, u"Ren\u00e9e"_s, u"/w"_s);
        const QByteArray encoded = encodeDescription(report);
        const qsizetype end = encoded.indexOf('\n');
        const QByteArray json = encoded.sliced(end + 1);
        QCOMPARE(encoded.first(end).toLongLong(), json.size());
        const auto back = decodeDescription(json);
        QVERIFY(back);
        QCOMPARE(encodeDescription(*back), encoded);
        QVERIFY(!decodeDescription(json.chopped(1)));
    }
};

int report_contents_test(int argc, char **argv) {
    return runTest<QCoreApplication, ReportContentsTest>(argc, argv);
}
#include "report_contents_test.moc"
