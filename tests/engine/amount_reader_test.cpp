#include "engine/amount_reader.h"
#include "engine_lines.h"

#include <QTest>

using namespace fennick;
using namespace Qt::StringLiterals;

class AmountReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsTheLabelledTotal_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<double>("amount");
        QTest::newRow("total") << QStringList{u"Soup 4.00"_s, u"Total 23.50"_s} << 23.50;
        QTest::newRow("grand total before total")
            << QStringList{u"Total 20.00"_s, u"Service 2.00"_s, u"Grand Total 22.00"_s, u"Total VAT 25.00"_s}
            << 22.00;
        QTest::newRow("amount due") << QStringList{u"Amount due: $1,284.17"_s} << 1284.17;
        QTest::newRow("balance due") << QStringList{u"BALANCE DUE 9.99"_s} << 9.99;
        QTest::newRow("not the subtotal")
            << QStringList{u"Subtotal 90.00"_s, u"Discount 20.00"_s, u"Total 70.00"_s} << 70.00;
        QTest::newRow("not the sub-total") << QStringList{u"Sub-Total 90.00"_s, u"Total 70.00"_s} << 70.00;
        QTest::newRow("not the cash")
            << QStringList{u"Total 61.20"_s, u"Cash 80.00"_s, u"Change 18.80"_s} << 61.20;
        QTest::newRow("not the tax") << QStringList{u"Total tax 99.00"_s, u"Total 12.00"_s} << 12.00;
        QTest::newRow("tax included counts")
            << QStringList{u"Total (inc GST) 13.50"_s, u"GST included 1.23"_s} << 13.50;
        QTest::newRow("not the item count") << QStringList{u"Total items 14"_s, u"Total 5.10"_s} << 5.10;
        QTest::newRow("price and not the count") << QStringList{u"Total 3 23.50"_s} << 23.50;
        QTest::newRow("Summe") << QStringList{u"SUMME EUR 34,48"_s, u"Gegeben EUR 50,00"_s} << 34.48;
        QTest::newRow("Gesamtbetrag")
            << QStringList{u"Zwischensumme 500.00"_s, u"Gesamtbetrag CHF 486.40"_s} << 486.40;
        QTest::newRow("Betrag") << QStringList{u"Betrag 12,00 EUR"_s} << 12.00;
        QTest::newRow("Total TTC") << QStringList{u"Total HT 16,91"_s, u"Total TTC 18,60"_s} << 18.60;
        QTest::newRow("Montant") << QStringList{u"Montant 7,20"_s} << 7.20;
        QTest::newRow("whole yen") << QStringList{u"Fare ¥2,660"_s, u"Total ¥2,980"_s} << 2980.0;
        QTest::newRow("amount below its label")
            << QStringList{u"TOTAL"_s, u"$ 15.20"_s, u"Cash 20.00"_s} << 15.20;
        QTest::newRow("two pages") << QStringList{u"Page total $1,069.50"_s, u"Carried forward $1,069.50"_s,
                                                  u"Total $900.00"_s}
                                   << 900.00;
        QTest::newRow("card line as a last resort")
            << QStringList{u"Tea 3.00"_s, u"Cake 4.00"_s, u"VISA 7.00"_s} << 7.00;
        QTest::newRow("largest beside a currency")
            << QStringList{u"Tea £3.00"_s, u"Entry £14.00"_s, u"Ref 99887766"_s} << 14.00;
    }
    void readsTheLabelledTotal() {
        QFETCH(QStringList, lines);
        QFETCH(double, amount);
        const std::optional<double> found = readAmount(linesOf(lines));
        QVERIFY(found.has_value());
        QCOMPARE(*found, amount);
    }

    void claimsNothingWithoutTotalOrCurrency() {
        QVERIFY(!readAmount(linesOf({u"Take 3 cups of flour"_s, u"Bake for 45 minutes"_s, u"Serves 4"_s})));
        QVERIFY(!readAmount({}));
    }

    void claimsNothingFromATotalOfZero() { QVERIFY(!readAmount(linesOf({u"Total 0.00"_s}))); }
};

QTEST_APPLESS_MAIN(AmountReaderTest)
#include "amount_reader_test.moc"
