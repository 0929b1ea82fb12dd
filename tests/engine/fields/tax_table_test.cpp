#include "engine/engine_lines.h"
#include "engine/fields/tax_table.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class TaxTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void addsNetAndTax_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<qint64>("thousandths");
        QTest::newRow("rate in the row")
            << QStringList{u"GST Summary"_s, u"SR 6% 50.00 3.00"_s} << qint64(53000);
        QTest::newRow("rate without its sign")
            << QStringList{u"Code  Amount  %  Tax"_s, u"SR  50.00  6  3.00"_s} << qint64(53000);
        QTest::newRow("rate elsewhere")
            << QStringList{u"Service tax at 8 %"_s, u"Goods 41.30 3.30"_s} << qint64(44600);
        QTest::newRow("rate not read")
            << QStringList{u"VAT analysis"_s, u"A ?? 30.00 6.00"_s} << qint64(36000);
        QTest::newRow("tax before net") << QStringList{u"MwSt 19,0% 9,50 50,00"_s} << qint64(59500);
        QTest::newRow("tax rounded item by item")
            << QStringList{u"GST Summary"_s, u"S 6% 50.00 3.01"_s} << qint64(53010);
        QTest::newRow("two rates together")
            << QStringList{u"A 19% 100,00 19,00"_s, u"B 7% 50,00 3,50"_s} << qint64(172500);
        QTest::newRow("goods without tax beside")
            << QStringList{u"SR 6% 50.00 3.00"_s, u"ZR 0% 8.80 0.00"_s} << qint64(61800);
    }
    void addsNetAndTax() {
        QFETCH(QStringList, lines);
        QFETCH(qint64, thousandths);
        QVERIFY(
            taxTableTotals(linesOf(lines), AmountRoles(testLanguages), {}, {5, 20}).contains(thousandths));
    }

    void findsNoTax_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("nothing") << QStringList{};
        QTest::newRow("misread price") << QStringList{u"GST Summary"_s, u"SR 6% 50.00 8.00"_s};
        QTest::newRow("quantity, price and amount")
            << QStringList{u"Green tea 10 1.50 15.00"_s, u"Black tea 4 2.95 11.80"_s};
        QTest::newRow("discount") << QStringList{u"Discount 10% 45.00 4.50"_s};
        QTest::newRow("tax of a few cents") << QStringList{u"GST Summary"_s, u"SR 6% 1.00 0.06"_s};
        QTest::newRow("rate that the country does not have")
            << QStringList{u"VAT analysis"_s, u"A ?? 30.00 5.70"_s};
        QTest::newRow("untaxed alone") << QStringList{u"ZR 0% 8.80 0.00"_s};
    }
    void findsNoTax() {
        QFETCH(QStringList, lines);
        QVERIFY(taxTableTotals(linesOf(lines), AmountRoles(testLanguages), {}, {5, 20}).isEmpty());
    }
};

int tax_table_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<TaxTableTest>(argc, argv);
}
#include "tax_table_test.moc"
