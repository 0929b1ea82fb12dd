#include "engine/fields/number_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class NumberReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsEveryStyle_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("plain") << u"23.50"_s << 23.50;
        QTest::newRow("comma") << u"23,50"_s << 23.50;
        QTest::newRow("English thousands") << u"1,234.56"_s << 1234.56;
        QTest::newRow("continental thousands") << u"1.234,56"_s << 1234.56;
        QTest::newRow("Swiss thousands") << u"1'234.50"_s << 1234.50;
        QTest::newRow("French thousands") << u"1 234,56"_s << 1234.56;
        QTest::newRow("millions") << u"1,234,567.89"_s << 1234567.89;
        QTest::newRow("Indian thousands") << u"1,23,456.00"_s << 123456.00;
        QTest::newRow("Indian millions") << u"12,34,567.50"_s << 1234567.50;
        QTest::newRow("hard blank") << u"1\u00a0234,56"_s << 1234.56;
        QTest::newRow("narrow hard blank") << u"1\u202f234,56"_s << 1234.56;
        QTest::newRow("whole thousands of kronor") << u"1 234 kr"_s << 1234.0;
        QTest::newRow("whole thousands of euros") << u"2 100 €"_s << 2100.0;
        QTest::newRow("no cents, Swiss") << u"CHF 45.-"_s << 45.0;
        QTest::newRow("no cents, Swedish") << u"29:-"_s << 29.0;
        QTest::newRow("no cents, German") << u"29,-"_s << 29.0;
        QTest::newRow("star of a till") << u"*645,50"_s << 645.50;
        QTest::newRow("Czech") << u"1 290 Kč"_s << 1290.0;
        QTest::newRow("yen") << u"¥12,800"_s << 12800.0;
        QTest::newRow("whole") << u"325"_s << 325.0;
        QTest::newRow("whole thousands") << u"2,980"_s << 2980.0;
        QTest::newRow("dollar") << u"$42.01"_s << 42.01;
        QTest::newRow("euro after") << u"18,60 €"_s << 18.60;
        QTest::newRow("tax letter after") << u"1,19 A"_s << 1.19;
        QTest::newRow("cents only") << u"0.05"_s << 0.05;
    }
    void readsEveryStyle() {
        QFETCH(QString, text);
        QFETCH(double, value);
        const QList<PrintedNumber> numbers = printedNumbers(text);
        QCOMPARE(numbers.size(), 1);
        QCOMPARE(numbers.first().value, value);
    }

    void readsWhatACurrencyPrints_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("currency");
        QTest::addColumn<double>("value");
        QTest::newRow("fils") << u"3.250"_s << u"KWD"_s << 3.25;
        QTest::newRow("fils with a comma") << u"12,750"_s << u"TND"_s << 12.75;
        QTest::newRow("fils and thousands") << u"1,250.500"_s << u"BHD"_s << 1250.5;
        QTest::newRow("rupiah") << u"60.000"_s << u"IDR"_s << 60000.0;
        QTest::newRow("rupiah with noughts") << u"98.500,00"_s << u"IDR"_s << 98500.0;
        QTest::newRow("blank behind the comma") << u"175, 000"_s << u"VND"_s << 175000.0;
        QTest::newRow("dong") << u"175 000 đ"_s << u"VND"_s << 175000.0;
        QTest::newRow("forint") << u"5 480"_s << u"HUF"_s << 5480.0;
        QTest::newRow("yen") << u"980"_s << u"JPY"_s << 980.0;
        QTest::newRow("pesos of Chile") << u"12.990"_s << u"CLP"_s << 12990.0;
        QTest::newRow("thousands of euros") << u"1.234"_s << u"EUR"_s << 1234.0;
    }
    void readsWhatACurrencyPrints() {
        QFETCH(QString, text);
        QFETCH(QString, currency);
        QFETCH(double, value);
        const QList<PrintedNumber> numbers = printedNumbers(text, priceStyle(currency));
        QCOMPARE(numbers.size(), 1);
        QCOMPARE(numbers.first().value, value);
        QCOMPARE(numbers.first().hasDecimals, currency != u"EUR");
    }

    void leavesOutWhatIsNoPrice_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("percentage") << u"7.5%"_s;
        QTest::newRow("percentage with space") << u"3,8 %"_s;
        QTest::newRow("point date") << u"01.05.2024"_s;
        QTest::newRow("slash date") << u"13/05/2024"_s;
        QTest::newRow("dash date") << u"2024-05-01"_s;
        QTest::newRow("time") << u"17:18"_s;
        QTest::newRow("word with digit") << u"A4"_s;
        QTest::newRow("refund") << u"-5.00"_s;
        QTest::newRow("refund with currency") << u"-$5.00"_s;
        QTest::newRow("trailing minus") << u"5.00-"_s;
        QTest::newRow("weight") << u"2kg"_s;
    }
    void leavesOutWhatIsNoPrice() {
        QFETCH(QString, text);
        const QList<PrintedNumber> numbers = printedNumbers(text);
        QVERIFY2(numbers.isEmpty(), qPrintable(QString::number(numbers.value(0).value)));
    }

    void tellsDecimalsAndCurrency() {
        const QList<PrintedNumber> numbers = printedNumbers(u"3 tickets  CHF 12.50"_s);
        QCOMPARE(numbers.size(), 2);
        QVERIFY(!numbers[0].hasDecimals);
        QVERIFY(!numbers[0].hasCurrency);
        QVERIFY(numbers[1].hasDecimals);
        QVERIFY(numbers[1].hasCurrency);
        QCOMPARE(numbers[1].start, 15);
        QCOMPARE(numbers[1].length, 5);
    }

    void keepsQuantityAndPriceApart() {
        const QList<PrintedNumber> numbers = printedNumbers(u"2 100.00"_s);
        QCOMPARE(numbers.last().value, 100.0);
    }
};

int number_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<NumberReaderTest>(argc, argv);
}
#include "number_reader_test.moc"
