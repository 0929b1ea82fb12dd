#include "pipeline/typed_values.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QLocale germanMoney(QLocale::German, QLocale::Germany);
const QLocale americanMoney(QLocale::English, QLocale::UnitedStates);
const QLocale frenchMoney(QLocale::French, QLocale::France);
const QLocale swissMoney(QLocale::German, QLocale::Switzerland);

} // namespace

class TypedAmountTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void understands_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("amount");
        QTest::newRow("locale's decimals") << germanMoney << u"12,50"_s << 12.5;
        QTest::newRow("the other separator") << germanMoney << u"12.50"_s << 12.5;
        QTest::newRow("locale's groups") << germanMoney << u"1.234"_s << 1234.0;
        QTest::newRow("groups and decimals") << germanMoney << u"1.234.567,89"_s << 1234567.89;
        QTest::newRow("both, the other way round") << germanMoney << u"1,234.5"_s << 1234.5;
        QTest::newRow("three decimals") << germanMoney << u"1,234"_s << 1.234;
        QTest::newRow("English decimals") << americanMoney << u"12.50"_s << 12.5;
        QTest::newRow("English groups") << americanMoney << u"1,234"_s << 1234.0;
        QTest::newRow("decimal comma in English") << americanMoney << u"12,5"_s << 12.5;
        QTest::newRow("French groups") << frenchMoney << u"1\u202f234,50"_s << 1234.5;
        QTest::newRow("Swiss groups") << swissMoney << u"1’234.50"_s << 1234.5;
        QTest::newRow("whole") << germanMoney << u" 7 "_s << 7.0;
        QTest::newRow("below zero") << germanMoney << u"-3,5"_s << -3.5;
        QTest::newRow("typographic minus") << germanMoney << u"\u22123,5"_s << -3.5;
        QTest::newRow("no whole part") << germanMoney << u",99"_s << 0.99;
        QTest::newRow("Arabic digits") << germanMoney << u"١٢٫٥"_s << 12.5;
    }
    void understands() {
        QFETCH(QLocale, locale);
        QFETCH(QString, typed);
        QFETCH(double, amount);
        const auto found = TypedValues::amount(typed, locale);
        QVERIFY(found);
        QCOMPARE(found->value(), amount);
    }

    void nothingIsAnAbsentAmount() {
        const auto found = TypedValues::amount(u" "_s, germanMoney);
        QVERIFY(found);
        QVERIFY(!*found);
    }

    void zeroHasNoSign() { QVERIFY(!std::signbit(**TypedValues::amount(u"-0"_s, germanMoney))); }

    void refuses_data() {
        QTest::addColumn<QString>("typed");
        for (const char *const typed : {"twelve", "12,5 EUR", "1e5", "1.23.456", "12,34,5", "1.234,5,6",
                                        "--1", "-", ",", ".", "1,2.3,4", "0x10", "inf", "nan", ".234"}) {
            QTest::newRow(typed) << QString::fromLatin1(typed);
        }
        QTest::newRow("beyond all numbers") << QString(400, u'9');
    }
    void refuses() {
        QFETCH(QString, typed);
        const auto found = TypedValues::amount(typed, germanMoney);
        QVERIFY(!found);
        QCOMPARE(found.error().description(), u"Write the amount like 1234,50"_s);
    }

    void isShownAsItIsTyped_data() {
        QTest::addColumn<double>("amount");
        QTest::addColumn<QString>("currency");
        QTest::addColumn<QString>("text");
        QTest::newRow("two decimals") << 1234.5 << u"EUR"_s << u"1234,50"_s;
        QTest::newRow("none") << 5480.0 << u"JPY"_s << u"5480"_s;
        QTest::newRow("three") << 1.5 << u"KWD"_s << u"1,500"_s;
        QTest::newRow("more than usual") << 0.125 << u"EUR"_s << u"0,125"_s;
        QTest::newRow("below zero") << -3.0 << u"EUR"_s << u"-3,00"_s;
        QTest::newRow("large") << 1e21 << u"JPY"_s << u"1000000000000000000000"_s;
    }
    void isShownAsItIsTyped() {
        QFETCH(double, amount);
        QFETCH(QString, currency);
        QFETCH(QString, text);
        QCOMPARE(TypedValues::amountText(amount, currency, germanMoney), text);
        QCOMPARE(TypedValues::amount(text, germanMoney)->value(), amount);
    }
};

int typed_amount_test(int argc, char **argv) {
    return runTest<QCoreApplication, TypedAmountTest>(argc, argv);
}
#include "typed_amount_test.moc"
