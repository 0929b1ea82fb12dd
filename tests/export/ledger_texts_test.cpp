#include "export/export_service.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

#include <limits>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

// The moment as Qt would say it, with the blank before "PM" that the locale data has.
QString englishText(const QDateTime &moment) {
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    return english.toString(moment, u"MMMM d, yyyy 'at' h:mm'\u202F'AP"_s);
}

} // namespace

class LedgerTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { zone_ = qgetenv("TZ"); }
    void cleanup() {
        QLocale::setDefault(QLocale::c());
        zone_.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone_);
    }

    void numbersHaveTwoDecimals_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << 0.0 << u"0.00"_s;
        QTest::newRow("whole") << 12.0 << u"12.00"_s;
        QTest::newRow("one decimal") << 12.5 << u"12.50"_s;
        QTest::newRow("no grouping") << 1234567.891 << u"1234567.89"_s;
        QTest::newRow("tie to even") << 0.125 << u"0.12"_s;
        QTest::newRow("exact value below the tie") << 1.005 << u"1.00"_s;
        QTest::newRow("negative") << -3.999 << u"-4.00"_s;
        QTest::newRow("negative zero") << -0.001 << u"-0.00"_s;
    }
    void numbersHaveTwoDecimals() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QFETCH(double, value);
        QTEST(ExportService::trimNumber(value), "text");
    }

    void largestNumberIsWrittenInFull() {
        const QString text = ExportService::trimNumber(std::numeric_limits<double>::max());
        QCOMPARE(text.size(), 309 + 3);
        QVERIFY(text.startsWith(u"17976931348623157"_s));
        QVERIFY(text.endsWith(u".00"_s));
    }

    void amountsAreWrittenInTheUsersLocale_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<double>("amount");
        QTest::addColumn<QString>("currency");
        QTest::addColumn<QString>("text");
        const QLocale american(QLocale::English, QLocale::UnitedStates);
        const QLocale german(QLocale::German, QLocale::Germany);
        const auto add = [](const char *name, const QLocale &locale, double amount, const char *currency,
                            const char *text) {
            QTest::newRow(name) << locale << amount << QString::fromUtf8(currency) << QString::fromUtf8(text);
        };
        add("dollars in the USA", american, 1234.5, "USD", "$1,234.50");
        add("euros in the USA", american, 12.5, "EUR", "€12.50");
        add("euros in Germany", german, 12.5, "EUR", "12,50\u00A0€");
        add("thousands in Germany", german, 1234.5, "EUR", "1.234,50\u00A0€");
        add("yen keep two decimals", american, 5000, "JPY", "¥5,000.00");
        add("dinars lose their third", american, 1.239, "KWD", "KWD\u00A01.24");
        add("francs are not rounded to five cents", american, 1.23, "CHF", "CHF\u00A01.23");
        add("negative", american, -1, "USD", "-$1.00");
        add("code in lower case", american, 1, "eur", "€1.00");
        add("code that no country has", american, 1, "XQZ", "XQZ\u00A01.00");
        add("no code but a name", american, 1234.5, "Dollar", "1234.50");
        add("no code but a symbol", american, 1234.5, "€", "1234.50");
        add("symbols as long as a code", american, 1234.5, "€€€", "1234.50");
        add("empty code", american, 1234.5, "", "1234.50");
    }
    void amountsAreWrittenInTheUsersLocale() {
        QFETCH(QLocale, locale);
        QFETCH(double, amount);
        QFETCH(QString, currency);
        QLocale::setDefault(locale);
        QTEST(ExportService::formatAmount(amount, currency), "text");
    }

    void amountWithoutACurrencyHasTwoDecimals() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(ExportService::formatAmount(12.5, std::nullopt), u"12.50"_s);
    }

    void absentAmountIsADashWithAndWithoutACurrency() {
        QCOMPARE(ExportService::formatAmount(std::nullopt, std::nullopt), u"—"_s);
        QCOMPARE(ExportService::formatAmount(std::nullopt, u"EUR"_s), u"—"_s);
    }

    void momentIsEnglishInTheDevicesZone_data() {
        QTest::addColumn<QByteArray>("zone");
        QTest::newRow("UTC") << QByteArray("UTC");
        QTest::newRow("14 hours ahead") << QByteArray("Pacific/Kiritimati");
        QTest::newRow("11 hours behind") << QByteArray("Pacific/Pago_Pago");
        QTest::newRow("45 minutes past") << QByteArray("Asia/Kathmandu");
    }
    void momentIsEnglishInTheDevicesZone() {
        QFETCH(QByteArray, zone);
        qputenv("TZ", zone);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const QString before = englishText(QDateTime::currentDateTime());
        const QString text = ExportService::longDateTime();
        const QString after = englishText(QDateTime::currentDateTime());
        QVERIFY2(text == before || text == after, qPrintable(u"%1 is not %2"_s.arg(text, before)));
    }

    void dateStampIsTodayInTheDevicesZone_data() { momentIsEnglishInTheDevicesZone_data(); }
    void dateStampIsTodayInTheDevicesZone() {
        QFETCH(QByteArray, zone);
        qputenv("TZ", zone);
        QLocale::setDefault(QLocale(QLocale::Persian, QLocale::Iran)); // other digits, another calendar
        const QString before = QDateTime::currentDateTime().toString(u"yyyy-MM-dd"_s);
        const QString stamp = ExportService::isoDateStamp();
        const QString after = QDateTime::currentDateTime().toString(u"yyyy-MM-dd"_s);
        QVERIFY2(stamp == before || stamp == after, qPrintable(stamp));
    }

    void zonesADayApartHaveDifferentDates() {
        qputenv("TZ", "Pacific/Kiritimati");
        const QString ahead = ExportService::isoDateStamp();
        qputenv("TZ", "Pacific/Pago_Pago"); // 25 hours behind
        const QString behind = ExportService::isoDateStamp();
        QVERIFY2(behind < ahead, qPrintable(u"%1 is not before %2"_s.arg(behind, ahead)));
    }

private:
    QByteArray zone_;
};

int ledger_texts_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, LedgerTextsTest>(argc, argv);
}
#include "ledger_texts_test.moc"
