#include "engine/service/receipt_reader.h"
#include "support/test_program.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include <array>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

constexpr double rowHeight = 18; // points

// Columns of an A4 page by their left edges in points: text in a row is parted by "|".
constexpr std::array columns = {50.0, 250.0, 340.0, 450.0};

// An invoice with a text layer. Each column is drawn from top to bottom before the next one, as many programs
// write tables, so that labels and their amounts are far apart in the file.
QByteArray invoice(const QStringList &rows) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageMargins({});
    const double unit = writer.resolution() / 72.0;
    QPainter painter(&writer);
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(static_cast<int>(10 * unit));
    painter.setFont(font);
    for (qsizetype column = 0; column < static_cast<qsizetype>(columns.size()); ++column) {
        for (qsizetype row = 0; row < rows.size(); ++row) {
            const QPointF at(columns[static_cast<size_t>(column)], 60 + rowHeight * static_cast<double>(row));
            painter.drawText(at * unit, rows[row].section(u'|', column, column));
        }
    }
    painter.end();
    return buffer.data();
}

} // namespace

class InvoicesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsInvoices_data() {
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QString>("merchant");
        QTest::addColumn<QDate>("date");
        QTest::addColumn<double>("total");
        QTest::addColumn<QString>("currency");
        QTest::newRow("British, with VAT")
            << QStringList{u"Harbour Joinery Ltd|||INVOICE"_s,
                           u"4 Quay Lane, Bristol BS1 4QA"_s,
                           u"Invoice date: 14 March 2024||Due date: 13 April 2024"_s,
                           u"Bill to: Northline Offices Ltd"_s,
                           u"Description|Qty|Unit price|Amount"_s,
                           u"Oak shelves|4|£120.00|£480.00"_s,
                           u"Fitting|7|£100.00|£700.00"_s,
                           u"||Subtotal|£1,180.00"_s,
                           u"||VAT 20%|£236.00"_s,
                           u"||Total|£1,416.00"_s,
                           u"||Amount due|£1,416.00"_s}
            << u"Harbour Joinery Ltd"_s << QDate(2024, 3, 14) << 1416.00 << u"GBP"_s;
        QTest::newRow("deposit paid before")
            << QStringList{u"Bluebell Tours Ltd|||INVOICE"_s,
                           u"Date: 02/05/2024"_s,
                           u"Boat trip for 12|1|£900.00|£900.00"_s,
                           u"||Invoice total|£900.00"_s,
                           u"||Deposit paid|£300.00"_s,
                           u"||Balance due|£600.00"_s}
            << u"Bluebell Tours Ltd"_s << QDate(2024, 5, 2) << 600.00 << u"GBP"_s;
        QTest::newRow("German")
            << QStringList{u"Lindenhof Druck GmbH|||Rechnung"_s, u"Rechnungsdatum: 3. Mai 2024"_s,
                           u"Pos.|Menge|Einzelpreis|Summe"_s,    u"Plakate A1|200|6,25 €|1.250,00 €"_s,
                           u"||Nettobetrag|1.250,00 €"_s,        u"||zzgl. 19 % MwSt.|237,50 €"_s,
                           u"||Rechnungsbetrag|1.487,50 €"_s,    u"Zahlbar bis 02.06.2024 ohne Abzug"_s}
            << u"Lindenhof Druck GmbH"_s << QDate(2024, 5, 3) << 1487.50 << u"EUR"_s;
        QTest::newRow("French") << QStringList{u"Atelier du Port SARL|||FACTURE"_s,
                                               u"Date : 7 février 2024"_s,
                                               u"Reliure|10|120,00|1 200,00 €"_s,
                                               u"||Total HT|1 200,00 €"_s,
                                               u"||TVA 20 %|240,00 €"_s,
                                               u"||Total TTC|1 440,00 €"_s}
                                << u"Atelier du Port SARL"_s << QDate(2024, 2, 7) << 1440.00 << u"EUR"_s;
        QTest::newRow("Spanish") << QStringList{u"Talleres Marina S.L.|||FACTURA"_s,
                                                u"Fecha: 21 de agosto de 2024"_s,
                                                u"Reparación|1|850,00|850,00 €"_s,
                                                u"||Base imponible|850,00 €"_s,
                                                u"||IVA 21 %|178,50 €"_s,
                                                u"||Total a pagar|1.028,50 €"_s}
                                 << u"Talleres Marina S.L."_s << QDate(2024, 8, 21) << 1028.50 << u"EUR"_s;
        QTest::newRow("Swiss") << QStringList{u"Seeblick Optik AG|||Rechnung"_s,
                                              u"Datum: 11.01.2024"_s,
                                              u"Brillenfassung|1|890.00|890.00"_s,
                                              u"Gläser|2|172.25|344.50"_s,
                                              u"||Zwischensumme|1'234.50"_s,
                                              u"||Gesamtbetrag CHF|1'234.50"_s}
                               << u"Seeblick Optik AG"_s << QDate(2024, 1, 11) << 1234.50 << u"CHF"_s;
        QTest::newRow("Swedish") << QStringList{u"Skärgårdens Båtar AB|||FAKTURA"_s, u"Datum: 2024-09-30"_s,
                                                u"Service|1|1 000,00|1 000,00"_s,
                                                u"||Varav moms 25 %|250,00"_s, u"||Att betala|1 250,00 kr"_s}
                                 << u"Skärgårdens Båtar AB"_s << QDate(2024, 9, 30) << 1250.00 << u"SEK"_s;
        QTest::newRow("Indian") << QStringList{u"Lotus Looms Pvt Ltd|||TAX INVOICE"_s,
                                               u"GSTIN 29ABCDE1234F1Z5"_s,
                                               u"Date: 15-Jun-2024"_s,
                                               u"Silk|100|1,000.00|1,00,000.00"_s,
                                               u"||Taxable value|1,00,000.00"_s,
                                               u"||CGST 9%|9,000.00"_s,
                                               u"||SGST 9%|9,000.00"_s,
                                               u"||Grand Total|₹1,18,000.00"_s}
                                << u"Lotus Looms Pvt Ltd"_s << QDate(2024, 6, 15) << 118000.00 << u"INR"_s;
        QTest::newRow("American, tax and card")
            << QStringList{u"Cedar Supply Inc.|||Invoice"_s, u"Date: 04/09/2024"_s,
                           u"Paint|3|$25.00|$75.00"_s,       u"||Subtotal|$75.00"_s,
                           u"||Sales tax 8.25%|$6.19"_s,     u"||Total|$81.19"_s,
                           u"||Paid by Visa|$81.19"_s}
            << u"Cedar Supply Inc."_s << QDate(2024, 4, 9) << 81.19 << u"USD"_s;
        QTest::newRow("yen without decimals")
            << QStringList{u"Hibari Print Co. Ltd|||INVOICE"_s,
                           u"Date: 2024/11/16"_s,
                           u"Cards|2|¥4,500|¥9,000"_s,
                           u"||Subtotal|¥9,000"_s,
                           u"||Tax 10%|¥900"_s,
                           u"||Total|¥9,900"_s}
            << u"Hibari Print Co. Ltd"_s << QDate(2024, 11, 16) << 9900.0 << u"JPY"_s;
    }
    void readsInvoices() {
        QFETCH(QStringList, rows);
        const auto fields = readReceiptFile(invoice(rows), QDate(2025, 6, 15));
        QVERIFY(fields);
        QTEST(fields->location.value_or(QString()), "merchant");
        QTEST(fields->date.value_or(QDate()), "date");
        QTEST(fields->amount.value_or(0), "total");
        QTEST(fields->currency.value_or(QString()), "currency");
    }
};

int invoices_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, InvoicesTest>(argc, argv);
}
#include "invoices_test.moc"
