#include "support/test_program.h"
#include "text/currency_text.h"

#include <QCoreApplication>
#include <QLocale>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

QString amountText(double amount, const std::optional<QString> &currencyCode) {
    return AmountFormatter(FractionDigits::ofCurrency).text(amount, currencyCode);
}

} // namespace

class CurrencyTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void writesTheAmountInTheUsersLocale() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(amountText(1234.5, u"USD"_s), u"$1,234.50"_s);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(amountText(1234.5, u"EUR"_s), u"1.234,50\u00A0€"_s);
    }

    void withoutACurrencyTwoDecimals() { QCOMPARE(amountText(12.5, std::nullopt), u"12.50"_s); }

    void theCLocaleReadsAsEnglish() { QCOMPARE(amountText(23.5, u"USD"_s), u"$23.50"_s); }

    void anUnknownCodeIsWrittenOut() { QVERIFY(amountText(5, u"XQZ"_s).contains(u"XQZ")); }

    void decimalsAreTheCurrencysOrTwo() {
        const QString yen = u"JPY"_s;
        QCOMPARE(amountText(5000, yen), u"¥5,000"_s);
        QCOMPARE(AmountFormatter(FractionDigits::two).text(5000, yen), u"¥5,000.00"_s);
        QCOMPARE(AmountFormatter(FractionDigits::two).text(1.2345, u"KWD"_s), u"KWD\u00A01.23"_s);
    }

    void aTextThatIsNoCodeGivesTwoDecimals_data() {
        QTest::addColumn<QString>("code");
        for (const char *code : {"", "E", "EU", "Euro", "€", "€€€", "E U", "12€"}) {
            QTest::newRow(*code ? code : "empty") << QString::fromUtf8(code);
        }
    }
    void aTextThatIsNoCodeGivesTwoDecimals() {
        QFETCH(QString, code);
        QCOMPARE(amountText(12.5, code), u"12.50"_s);
    }

    void oneFormatterServesCurrenciesInTurn() {
        AmountFormatter formatter(FractionDigits::two);
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(formatter.text(1, u"EUR"_s), u"€1.00"_s);
            QCOMPARE(formatter.text(2, u"USD"_s), u"$2.00"_s);
            QCOMPARE(formatter.text(3, std::nullopt), u"3.00"_s);
        }
    }

    void moreCodesThanAreKeptAreStillWrittenRight() {
        AmountFormatter formatter(FractionDigits::two);
        for (char16_t first = u'A'; first <= u'Z'; ++first) {
            for (char16_t last = u'A'; last <= u'Z'; ++last) {
                const QString code = QString(QChar(first)) + u'Q' + QChar(last);
                QCOMPARE(formatter.text(1, code), code + u"\u00A01.00"_s);
            }
        }
        QCOMPARE(formatter.text(1, u"EUR"_s), u"€1.00"_s);
    }
};

int currency_text_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, CurrencyTextTest>(argc, argv);
}
#include "currency_text_test.moc"
