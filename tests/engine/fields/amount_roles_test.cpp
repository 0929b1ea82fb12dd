#include "engine/engine_lines.h"
#include "engine/fields/amount_roles.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(fennick::engine::AmountRole)

class AmountRolesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsTheRole_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<AmountRole>("role");
        const auto rows = [](AmountRole role, const QStringList &labels) {
            for (const QString &label : labels)
                QTest::newRow(qPrintable(label)) << label << role;
        };
        rows(AmountRole::finalTotal,
             {u"Grand Total"_s, u"AMOUNT DUE:"_s, u"Balance due"_s, u"Total payable"_s,
              u"Total Amt Payable :"_s, u"NETT TOTAL"_s, u"Rounded total"_s, u"Total rounded"_s,
              u"FinalTotal"_s, u"Gesamtbetrag"_s, u"Rechnungsbetrag EUR"_s, u"zu zahlen"_s, u"Net à payer"_s,
              u"Total TTC"_s, u"Total a pagar"_s, u"Att betala"_s, u"Te betalen"_s});
        rows(AmountRole::total,
             {u"Total"_s, u"TOTAL RM"_s, u"Total (incl. GST)"_s, u"Total Sales (Inclusive of GST)"_s,
              u"Summe EUR"_s, u"SUMME"_s, u"Totalt"_s, u"Totale"_s, u"合計"_s, u"Total after discount"_s,
              u"Due"_s, u"Total (tax included)"_s, u"Jumlah"_s});
        rows(AmountRole::subtotal,
             {u"Subtotal"_s, u"SUB-TOTAL"_s, u"Sub Total (3 items)"_s, u"Zwischensumme"_s, u"Sous-total"_s,
              u"Total (excl. GST)"_s, u"Total Sales (Excluding GST)"_s, u"Total HT"_s, u"Netto"_s,
              u"Total 6% supplies"_s});
        rows(AmountRole::tax,
             {u"GST 6%"_s, u"Total GST"_s, u"VAT @ 20%"_s, u"MwSt 19%"_s, u"TVA 10%"_s, u"IVA"_s,
              u"Moms 25%"_s, u"Sales tax"_s, u"Total includes GST"_s, u"GST @6% included in total"_s});
        rows(AmountRole::rounding, {u"Rounding"_s, u"Rounding Adj"_s, u"Round Adj"_s, u"Öresavrundning"_s});
        rows(AmountRole::change, {u"Change"_s, u"CHANGE DUE"_s, u"Rückgeld"_s, u"Wechselgeld"_s, u"Baki"_s});
        rows(AmountRole::tendered,
             {u"Cash"_s, u"CASH TENDERED"_s, u"Gegeben EUR"_s, u"CashReceived"_s, u"Cash received"_s});
        rows(AmountRole::card,
             {u"VISA"_s, u"Mastercard"_s, u"EC-Karte"_s, u"Credit card"_s, u"Carte bancaire"_s});
        rows(AmountRole::charge, {u"Service Charge 10%"_s, u"Svr Chrg 10%"_s, u"Tip"_s, u"Gratuity"_s});
        rows(AmountRole::discount, {u"Discount"_s, u"Member discount"_s, u"Rabatt"_s, u"Remise"_s});
        rows(AmountRole::mention, {u"Amount"_s, u"Betrag"_s, u"Montant"_s, u"Importe"_s});
        rows(AmountRole::other,
             {u"Total items"_s, u"Total Qty:"_s, u"Total savings"_s, u"Points"_s, u"Page total"_s});
        rows(AmountRole::unnamed, {u"Green tea"_s, u""_s, u"12 High Street"_s, u"Roti bun"_s});
    }
    void tellsTheRole() {
        QFETCH(QString, label);
        QFETCH(AmountRole, role);
        QCOMPARE(AmountRoles(testLanguages).role(label), role);
    }

    void understandsMisreadLabels_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<AmountRole>("role");
        QTest::newRow("digit for letter") << u"T0TAL"_s << AmountRole::total;
        QTest::newRow("one letter wrong") << u"Totai :"_s << AmountRole::total;
        QTest::newRow("first letter wrong") << u"iotal"_s << AmountRole::total;
        QTest::newRow("letter lost") << u"SUBTOTA"_s << AmountRole::subtotal;
        QTest::newRow("tax in digits") << u"Total 6ST"_s << AmountRole::tax;
        QTest::newRow("long word, two wrong") << u"Roundlng Adjustmant"_s << AmountRole::rounding;
        QTest::newRow("change") << u"CHANQE"_s << AmountRole::change;
        QTest::newRow("cash") << u"C4SH"_s << AmountRole::tendered;
        QTest::newRow("contained tax") << u"GST 1ncluded"_s << AmountRole::other;
        QTest::newRow("deposit paid") << u"Dep0sit paid"_s << AmountRole::paidBefore;
        QTest::newRow("bottle deposit") << u"Deposit"_s << AmountRole::other;
        QTest::newRow("a charge is no change") << u"Delivery charge"_s << AmountRole::unnamed;
    }
    void understandsMisreadLabels() { tellsTheRole(); }

    void knowsTaxTables() {
        QVERIFY(AmountRoles(testLanguages).startsTaxTable(u"GST Summary   Amount(RM)  Tax(RM)"_s));
        QVERIFY(AmountRoles(testLanguages).startsTaxTable(u"VAT analysis"_s));
        QVERIFY(!AmountRoles(testLanguages).startsTaxTable(u"Tax invoice"_s));
        QVERIFY(!AmountRoles(testLanguages).startsTaxTable(u"Total 12.00"_s));
    }
};

int amount_roles_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<AmountRolesTest>(argc, argv);
}
#include "amount_roles_test.moc"
