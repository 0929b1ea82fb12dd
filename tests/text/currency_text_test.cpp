#include "support/test_program.h"
#include "text/currency_text.h"

#include <QCoreApplication>
#include <QLocale>

using namespace fennick;

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
        QCOMPARE(amountText(1234.5, QStringLiteral("USD")), QStringLiteral("$1,234.50"));
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(amountText(1234.5, QStringLiteral("EUR")), QStringLiteral("1.234,50\u00A0€"));
    }

    void withoutACurrencyTwoDecimals() { QCOMPARE(amountText(12.5, std::nullopt), QStringLiteral("12.50")); }

    void theCLocaleReadsAsEnglish() {
        QCOMPARE(amountText(23.5, QStringLiteral("USD")), QStringLiteral("$23.50"));
    }

    void anUnknownCodeIsWrittenOut() { QVERIFY(amountText(5, QStringLiteral("XQZ")).contains(u"XQZ")); }

    void decimalsAreTheCurrencysOrTwo() {
        const QString yen = QStringLiteral("JPY");
        QCOMPARE(amountText(5000, yen), QStringLiteral("¥5,000"));
        QCOMPARE(AmountFormatter(FractionDigits::two).text(5000, yen), QStringLiteral("¥5,000.00"));
        QCOMPARE(AmountFormatter(FractionDigits::two).text(1.2345, QStringLiteral("KWD")),
                 QStringLiteral("KWD\u00A01.23"));
    }

    void aTextThatIsNoCodeGivesTwoDecimals_data() {
        QTest::addColumn<QString>("code");
        for (const char *code : {"", "E", "EU", "Euro", "€", "€€€", "E U", "12€"}) {
            QTest::newRow(*code ? code : "empty") << QString::fromUtf8(code);
        }
    }
    void aTextThatIsNoCodeGivesTwoDecimals() {
        QFETCH(QString, code);
        QCOMPARE(amountText(12.5, code), QStringLiteral("12.50"));
    }

    void oneFormatterServesCurrenciesInTurn() {
        AmountFormatter formatter(FractionDigits::two);
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(formatter.text(1, QStringLiteral("EUR")), QStringLiteral("€1.00"));
            QCOMPARE(formatter.text(2, QStringLiteral("USD")), QStringLiteral("$2.00"));
            QCOMPARE(formatter.text(3, std::nullopt), QStringLiteral("3.00"));
        }
    }

    void moreCodesThanAreKeptAreStillWrittenRight() {
        AmountFormatter formatter(FractionDigits::two);
        for (char16_t first = u'A'; first <= u'Z'; ++first) {
            for (char16_t last = u'A'; last <= u'Z'; ++last) {
                const QString code = QString(QChar(first)) + u'Q' + QChar(last);
                QCOMPARE(formatter.text(1, code), code + QStringLiteral("\u00A01.00"));
            }
        }
        QCOMPARE(formatter.text(1, QStringLiteral("EUR")), QStringLiteral("€1.00"));
    }
};

int currency_text_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, CurrencyTextTest>(argc, argv);
}
#include "currency_text_test.moc"
