#include "engine/engine_lines.h"
#include "engine/fields/amount_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

AmountScores amountScoresOf(const Reading &reading) {
    return amountScores(amountsOf(reading));
}

std::optional<FoundAmount> amountIn(const QList<Reading> &readings) {
    return readAmount(factOfEach(readings, &amountScoresOf));
}

} // namespace

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
        QTest::newRow("rounded to whole crowns")
            << QStringList{u"Billett 441,80"_s, u"SUM 441,80"_s, u"Øreavrunding 0,20"_s,
                           u"TOTALT NOK 442,00"_s, u"Kontanter 442,00"_s}
            << 442.00;
        QTest::newRow("total without noughts")
            << QStringList{u"Stamps 8,000.00"_s, u"Book 65,000.00"_s, u"TOTAL 73,000"_s, u"VISA 73,000.00"_s}
            << 73000.00;
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
        const std::optional<FoundAmount> found = amountIn({linesOf(lines)});
        QVERIFY(found.has_value());
        QCOMPARE(found->amount, amount);
    }

    void readsTotalsOfTills_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<double>("amount");
        QTest::newRow("rounded for cash")
            << QStringList{u"Tea 8.43"_s,        u"Total Amount 8.43"_s, u"Rounding 0.02"_s,
                           u"Nett Total 8.45"_s, u"Cash 10.00"_s,        u"Change 1.55"_s}
            << 8.45;
        QTest::newRow("rounded in a line of its own")
            << QStringList{u"Total Sales (Inclusive GST) RM 31.26"_s, u"Rounding Adj -0.01"_s,
                           u"Rounding RM 31.25"_s, u"CASH RM 40.00"_s, u"CHANGE RM 8.75"_s}
            << 31.25;
        QTest::newRow("total before tax and after")
            << QStringList{u"Total (excl. GST) 100.00"_s, u"GST 6.00"_s, u"Total (incl. GST) 106.00"_s}
            << 106.00;
        QTest::newRow("tax table below") << QStringList{u"Total Sales 53.00"_s, u"GST Summary"_s,
                                                        u"SR 6 50.00 3.00"_s, u"Total : 50.00 3.00"_s}
                                         << 53.00;
        QTest::newRow("count of things with a price")
            << QStringList{u"Total Qty: 8 97.35"_s, u"Total Sales 97.35"_s, u"Total items 3"_s} << 97.35;
        QTest::newRow("only subtotal and cash")
            << QStringList{u"SUBTOTAL RM13.80"_s, u"CASH RM13.80"_s} << 13.80;
        QTest::newRow("label not read, sum known")
            << QStringList{u"Sub Total 52.40"_s, u"GST 2.60"_s, u"?o+41 55.00"_s, u"CHANGE 0.00"_s} << 55.00;
        QTest::newRow("tax contained in the total")
            << QStringList{u"Counter total (incl GST) 31.80"_s, u"TOTAL INCLUDES 6% GST 1.80"_s} << 31.80;
        QTest::newRow("parts of the total")
            << QStringList{u"Total 6% supplies (Inc. GST) 21.20"_s, u"Total 0% supplies 8.80"_s,
                           u"Total Payable: 30.00"_s}
            << 30.00;
        QTest::newRow("what was handed over is called total")
            << QStringList{u"Amount incl. GST 5.00"_s, u"Accepted total 10.00"_s, u"Change 5.00"_s} << 5.00;
        QTest::newRow("misread label, currency attached") << QStringList{u"T0tal RM45.6O"_s} << 45.60;
        QTest::newRow("blank in the number") << QStringList{u"TOTAL : 6. 00"_s, u"CASH : 6.00"_s} << 6.00;
        QTest::newRow("due alone") << QStringList{u"Qty 8 14.60"_s, u"Due 14.60"_s, u"Change 0.00"_s}
                                   << 14.60;
        QTest::newRow("balance after a deposit")
            << QStringList{u"Boat trip 900.00"_s, u"Total 900.00"_s, u"Deposit paid 300.00"_s,
                           u"Balance due 600.00"_s}
            << 600.00;
        QTest::newRow("tax contained, not added")
            << QStringList{u"Sub-Total 15.60"_s, u"Coupon Discount 8.90"_s, u"Grand Tot 6.70"_s,
                           u"6% GST Included 0.38"_s}
            << 6.70;
        QTest::newRow("service charge and tax")
            << QStringList{u"SUBTOTAL 20.00"_s, u"Svr Chrg 10% 2.00"_s, u"GST 6% 1.32"_s, u"TOTAL 23.32"_s,
                           u"CASH 50.32"_s}
            << 23.32;
    }
    void readsTotalsOfTills() { readsTheLabelledTotal(); }

    void readsTotalsOfInvoices_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<double>("amount");
        QTest::newRow("amount due after payments")
            << QStringList{u"Subtotal  1,180.00"_s, u"VAT 20%  236.00"_s, u"Total  1,416.00"_s,
                           u"Amount due  1,416.00"_s}
            << 1416.00;
        QTest::newRow("German") << QStringList{u"Pos  Menge  Preis  Summe"_s, u"1  2  50,00  100,00"_s,
                                               u"Nettobetrag  100,00 €"_s, u"zzgl. MwSt. 19 %  19,00 €"_s,
                                               u"Rechnungsbetrag  119,00 €"_s}
                                << 119.00;
        QTest::newRow("German till") << QStringList{u"SUMME EUR  1.234,56"_s, u"BAR EUR  1.250,00"_s,
                                                    u"RÜCKGELD EUR  15,44"_s}
                                     << 1234.56;
        QTest::newRow("French") << QStringList{u"Total HT  100,00"_s, u"TVA 20%  20,00"_s,
                                               u"Net à payer  120,00 €"_s}
                                << 120.00;
        QTest::newRow("Spanish") << QStringList{u"Base imponible  100,00"_s, u"IVA 21%  21,00"_s,
                                                u"Importe total  121,00 €"_s}
                                 << 121.00;
        QTest::newRow("Swiss") << QStringList{u"Zwischentotal  1'200.00"_s, u"Gesamtbetrag CHF  1'234.50"_s}
                               << 1234.50;
        QTest::newRow("Swedish") << QStringList{u"Varav moms 25%  65,00"_s, u"Att betala  325,00 kr"_s}
                                 << 325.00;
        QTest::newRow("Indian") << QStringList{u"CGST 9%  90.00"_s, u"SGST 9%  90.00"_s,
                                               u"Grand Total  ₹1,180.00"_s}
                                << 1180.00;
        QTest::newRow("Canadian") << QStringList{u"Subtotal $10.00"_s, u"HST $1.30"_s, u"TOTAL $11.30"_s}
                                  << 11.30;
    }
    void readsTotalsOfInvoices() { readsTheLabelledTotal(); }

    void letsReadingsVote() {
        const Reading right = linesOf({u"Total 18.00"_s});
        const Reading wrong = linesOf({u"Total 16.00"_s});
        QCOMPARE(amountIn({right, wrong, right})->amount, 18.00);
        QCOMPARE(amountIn({wrong, wrong, right})->amount, 16.00);
    }

    void letsTheSumsOutvoteAMisreadTotal() {
        const Reading misread = linesOf({u"Sub Total 15.30"_s, u"GST 0.92"_s, u"TOTAL 16.28"_s});
        const Reading right = linesOf({u"Sub Total 15.30"_s, u"GST 0.92"_s, u"TOTAL 16.22"_s});
        QCOMPARE(amountIn({misread, misread, right})->amount, 16.22);
    }

    void letsTheTableOfTaxesDecide() {
        const Reading misread = linesOf({u"TOTAL 82.40"_s, u"GST Summary"_s, u"SR 6% 58.87 3.53"_s});
        const Reading right = linesOf({u"TOTAL 62.40"_s, u"GST Summary"_s, u"SR 6% 58.87 3.53"_s});
        QCOMPARE(amountIn({misread, right})->amount, 62.40);
    }

    void claimsNothingBetweenEquals() {
        QVERIFY(!amountIn({linesOf({u"Total 18.00"_s}), linesOf({u"Total 16.00"_s})}));
    }

    void takesWhatFewReadingsHaveIfNothingElseComesNear() {
        const Reading clear = linesOf({u"Total 16.00"_s, u"Cash 16.00"_s});
        const Reading nothing = linesOf({u"Thank you"_s});
        QCOMPARE(amountIn({clear, nothing, nothing, clear})->amount, 16.00);
        QVERIFY(!amountIn({clear, nothing, nothing, nothing, nothing, nothing, nothing, nothing}));
    }

    void claimsNothingFromWhatWasHardlyRead() {
        const Reading nothing = linesOf({u"Thank you"_s});
        QVERIFY(!amountIn({linesOf({u"Cash 16.00"_s}), nothing, nothing, nothing}));
    }

    void isCertainWhenEverythingAgrees() {
        const Reading whole =
            linesOf({u"Tea 2.50"_s, u"Cake 5.00"_s, u"Total 7.50"_s, u"Cash 10.00"_s, u"Change 2.50"_s});
        QVERIFY(amountIn({whole, whole})->isCertain);
        QVERIFY(!amountIn({linesOf({u"Total 7.50"_s})})->isCertain);
    }

    void claimsNothingWithoutTotalOrCurrency() {
        QVERIFY(!amountIn({linesOf({u"Take 3 cups of flour"_s, u"Bake for 45 minutes"_s, u"Serves 4"_s})}));
        QVERIFY(!amountIn({}));
    }

    void claimsNothingFromATotalOfZero() { QVERIFY(!amountIn({linesOf({u"Total 0.00"_s})})); }
};

int amount_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<AmountReaderTest>(argc, argv);
}
#include "amount_reader_test.moc"
