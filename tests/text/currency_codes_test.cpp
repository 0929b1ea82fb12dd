#include "support/test_program.h"
#include "text/currency_codes.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class CurrencyCodesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void offersWhatIsInUseInAlphabeticalOrder() {
        const QStringList codes = currencyCodesInUse();
        QVERIFY(codes.contains(u"EUR"_s));
        QVERIFY(codes.contains(u"KWD"_s));
        QVERIFY(!codes.contains(u"DEM"_s));
        QVERIFY(std::is_sorted(codes.cbegin(), codes.cend()));
    }

    void knowsFormerCurrenciesToo() {
        QVERIFY(isIsoCurrency(u"EUR"_s));
        QVERIFY(isIsoCurrency(u"DEM"_s));
        QVERIFY(!isIsoCurrency(u"EUF"_s));
        QVERIFY(!isIsoCurrency(u"eur"_s));
        QVERIFY(!isIsoCurrency(QString()));
    }

    void namesAreInTheLocalesLanguage() {
        QCOMPARE(currencyName(u"USD"_s, QLocale(QLocale::English, QLocale::UnitedStates)), u"US Dollar"_s);
        QCOMPARE(currencyName(u"USD"_s, QLocale(QLocale::German, QLocale::Germany)), u"US-Dollar"_s);
        QCOMPARE(currencyName(u"XQZ"_s, QLocale::c()), u"XQZ"_s);
    }

    void decimalsAreTheCurrencys() {
        QCOMPARE(currencyDecimals(u"EUR"_s), 2);
        QCOMPARE(currencyDecimals(u"JPY"_s), 0);
        QCOMPARE(currencyDecimals(u"KWD"_s), 3);
        QCOMPARE(currencyDecimals(u"nonsense"_s), 2);
        QCOMPARE(currencyDecimals(QString()), 2);
    }
};

int currency_codes_test(int argc, char **argv) {
    return runTest<QCoreApplication, CurrencyCodesTest>(argc, argv);
}
#include "currency_codes_test.moc"
