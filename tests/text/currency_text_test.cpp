#include "text/currency_text.h"

#include <QLocale>
#include <QTest>

using namespace fennick;

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
};

QTEST_GUILESS_MAIN(CurrencyTextTest)
#include "currency_text_test.moc"
