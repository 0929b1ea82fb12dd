#include "engine/engine_lines.h"
#include "engine/fields/receipt_fields.h"
#include "engine/fields/refund.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class RefundTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void knowsARefundByItsTotals_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<bool>("is");
        QTest::newRow("minus before") << QStringList{u"Shirt -20.00"_s, u"Total -20.00"_s} << true;
        QTest::newRow("minus before a currency") << QStringList{u"TOTAL -$20.00"_s} << true;
        QTest::newRow("minus behind") << QStringList{u"SUMME 20,00-"_s} << true;
        QTest::newRow("something returned") << QStringList{u"Bottle -0.25"_s, u"Total 20.00"_s} << false;
        QTest::newRow("dash between") << QStringList{u"Total - 20.00"_s} << false;
        QTest::newRow("no cents") << QStringList{u"Summe 20,-"_s} << false;
        QTest::newRow("date") << QStringList{u"Total 2024-05-01"_s} << false;
        QTest::newRow("paid after a voucher")
            << QStringList{u"Total 20.00"_s, u"Voucher -5.00"_s, u"Total discount -5.00"_s} << false;
    }
    void knowsARefundByItsTotals() {
        QFETCH(QStringList, lines);
        QFETCH(bool, is);
        QCOMPARE(isRefund(linesOf(lines), AmountRoles(testLanguages)), is);
    }

    void answersWhatWasGivenBackBelowZero() {
        const Reading lines = linesOf({u"Corner Shop"_s, u"2024-05-01 14:32"_s, u"Shirt -20.00"_s,
                                       u"Sub-total -20.00"_s, u"VAT 20% -4.00"_s, u"Total -24.00"_s});
        const auto fields = readReceipt({factsOf(lines)}, QDate(2024, 6, 1));
        QVERIFY(fields);
        QCOMPARE(fields->amount, std::optional(-24.0));
    }
};

int refund_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<RefundTest>(argc, argv);
}
#include "refund_test.moc"
