#include "bench/world/amount_text.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class AmountTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void amountsAreWrittenAsTheSampleIs_data() {
        QTest::addColumn<QString>("sample");
        QTest::addColumn<int>("digits");
        QTest::addColumn<qint64>("amount");
        QTest::addColumn<QString>("text");
        QTest::newRow("German") << u"1.234,50 €"_s << 2 << qint64{123456789} << u"1.234.567,89 €"_s;
        QTest::newRow("not grouped") << u"*1234,50"_s << 2 << qint64{645500} << u"*6455,00"_s;
        QTest::newRow("Swiss") << u"CHF 1'234.50"_s << 2 << qint64{100005} << u"CHF 1'000.05"_s;
        QTest::newRow("below one") << u"$1,234.50"_s << 2 << qint64{7} << u"$0.07"_s;
        QTest::newRow("whole, as in Sweden") << u"1 234:-"_s << 2 << qint64{2900} << u"29:-"_s;
        QTest::newRow("no decimals") << u"1 234 Ft"_s << 0 << qint64{5480} << u"5 480 Ft"_s;
        QTest::newRow("decimals that the currency lacks")
            << u"1.234,00"_s << 0 << qint64{98500} << u"98.500,00"_s;
        QTest::newRow("three decimals") << u"KD 1,234.500"_s << 3 << qint64{1005} << u"KD 1.005"_s;
        QTest::newRow("below zero") << u"R$ 1.234,50"_s << 2 << qint64{-250} << u"-R$ 2,50"_s;
    }

    void amountsAreWrittenAsTheSampleIs() {
        QFETCH(const QString, sample);
        QFETCH(const int, digits);
        QFETCH(const qint64, amount);
        QTEST(amountText(amount, digits, AmountShape::of(sample)), "text");
    }

    void aShapeWithoutDecimalsLeavesCentsOut() {
        const AmountShape whole = AmountShape::of(u"1 234:-"_s);
        QVERIFY(isExact(2900, 2, whole));
        QVERIFY(!isExact(2950, 2, whole));
        QVERIFY(isExact(2950, 0, whole));
        QVERIFY(isExact(2950, 2, AmountShape::of(u"1234.50"_s)));
    }
};

int amount_text_test(int argc, char **argv) {
    return runTest<QCoreApplication, AmountTextTest>(argc, argv);
}
#include "amount_text_test.moc"
