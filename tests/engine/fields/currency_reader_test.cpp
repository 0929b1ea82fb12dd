#include "engine/engine_lines.h"
#include "engine/fields/currency_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

std::optional<QString> currencyIn(const QStringList &lines) {
    const Reading reading = linesOf(lines);
    return readCurrency(reading, countryScores(reading));
}

} // namespace

class CurrencyReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsSymbolsAndCodes_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("code");
        QTest::newRow("euro") << u"Total 5,00 €"_s << u"EUR"_s;
        QTest::newRow("pound") << u"Total £5.00"_s << u"GBP"_s;
        QTest::newRow("Canadian") << u"Total C$5.00"_s << u"CAD"_s;
        QTest::newRow("Canadian, longer") << u"Total CA$5.00"_s << u"CAD"_s;
        QTest::newRow("Australian") << u"Total A$5.00"_s << u"AUD"_s;
        QTest::newRow("US, longer") << u"Total US$5.00"_s << u"USD"_s;
        QTest::newRow("ringgit") << u"Total RM 5.00"_s << u"MYR"_s;
        QTest::newRow("ringgit in brackets") << u"Total (RM) 5.00"_s << u"MYR"_s;
        QTest::newRow("rupee") << u"Total ₹500"_s << u"INR"_s;
        for (const char *code : {"USD", "EUR", "GBP", "JPY", "CAD", "AUD", "CHF", "MYR", "SEK", "INR"})
            QTest::newRow(code) << u"TOTAL %1 12.00"_s.arg(QLatin1StringView(code))
                                << QString(QLatin1StringView(code));
    }
    void readsSymbolsAndCodes() {
        QFETCH(QString, line);
        QFETCH(QString, code);
        QCOMPARE(currencyIn({line}), std::optional(code));
    }

    void signOfSeveralCurrenciesStaysOpenByItself_data() {
        QTest::addColumn<QString>("line");
        for (const char *line : {"Total $5.00", "Total ¥5.00", "Totalt 50,00 kr", "Totalt kr 50,00",
                                 "Total Rs. 500.00", "Total R 50.00"})
            QTest::newRow(line) << QString::fromUtf8(line);
    }
    void signOfSeveralCurrenciesStaysOpenByItself() {
        QFETCH(QString, line);
        QCOMPARE(currencyIn({line}), std::nullopt);
    }

    void signOfSeveralCurrenciesBelongsToTheCountry_data() {
        QTest::addColumn<QString>("sign");
        QTest::addColumn<QString>("country");
        QTest::addColumn<QString>("code");
        const auto row = [](const QString &sign, const QString &country, const QString &code) {
            QTest::newRow(qPrintable(code)) << sign << country << code;
        };
        row(u"Total $5.00"_s, u"Columbus, OH 43215"_s, u"USD"_s);
        row(u"Total $5.00"_s, u"Toronto"_s, u"CAD"_s);
        row(u"Total $5.00"_s, u"Auckland"_s, u"NZD"_s);
        row(u"Total $5.00"_s, u"Singapore 238801"_s, u"SGD"_s);
        row(u"Total $98.500"_s, u"Bogotá"_s, u"COP"_s);
        row(u"Total 50,00 kr"_s, u"Stockholm"_s, u"SEK"_s);
        row(u"Total kr 50,00"_s, u"Oslo"_s, u"NOK"_s);
        row(u"Total 50,00 kr."_s, u"København"_s, u"DKK"_s);
        row(u"Total Rs. 500.00"_s, u"Mumbai"_s, u"INR"_s);
        row(u"Total Rs 500.00"_s, u"Kathmandu"_s, u"NPR"_s);
        row(u"Total R 50.00"_s, u"Cape Town"_s, u"ZAR"_s);
        row(u"Total ¥5.00"_s, u"Osaka"_s, u"JPY"_s);
        row(u"Total ¥50.00"_s, u"Shanghai"_s, u"CNY"_s);
        row(u"Total KD 5.250"_s, u"Salmiya, Kuwait"_s, u"KWD"_s);
    }
    void signOfSeveralCurrenciesBelongsToTheCountry() {
        QFETCH(QString, sign);
        QFETCH(QString, country);
        QFETCH(QString, code);
        QCOMPARE(currencyIn({u"Corner Shop"_s, country, sign}), std::optional(code));
    }

    void codeThatIsAWordNeedsDigits() {
        QCOMPARE(currencyIn({u"TRY OUR CAKE"_s, u"PEN PACK"_s}), std::nullopt);
        QCOMPARE(currencyIn({u"TOTAL TRY 120,00"_s}), std::optional(u"TRY"_s));
    }

    void takesTheDollarsThatAreNamed() {
        QCOMPARE(currencyIn({u"Fuel $64.12"_s, u"HST $8.34"_s, u"TOTAL CAD $72.46"_s}),
                 std::optional(u"CAD"_s));
        QCOMPARE(currencyIn({u"Total A$13.50"_s, u"Card A$13.50"_s}), std::optional(u"AUD"_s));
    }

    void takesTheCountryIntoAccount() {
        QCOMPARE(currencyIn({u"HARBOUR SDN BHD"_s, u"Jalan Bayu"_s, u"Total $5.00"_s, u"Cash $5.00"_s}),
                 std::optional(u"MYR"_s));
        QCOMPARE(currencyIn({u"ABN 12 345 678 901"_s, u"Bay NSW 2000"_s, u"Total $5.00"_s}),
                 std::optional(u"AUD"_s));
        QCOMPARE(currencyIn({u"GSTIN 29ABCDE"_s, u"Total 500.00"_s}), std::optional(u"INR"_s));
    }

    void isNotMisledByTaxLettersReadAsDollars() {
        QCOMPARE(currencyIn({u"HARBOUR SDN BHD"_s, u"Tea 6.00 $"_s, u"Cake 4.20 $"_s, u"Bun 3.10 $"_s}),
                 std::optional(u"MYR"_s));
    }

    void takesNoAddressForDollars() {
        QCOMPARE(currencyIn({u"12, $S7/1A,"_s, u"12, $57/1A,"_s, u"Lot $3-12"_s}), std::nullopt);
        QCOMPARE(currencyIn({u"12, $57/1A,"_s, u"Qty  Price  RM"_s, u"Tea  4.00"_s}),
                 std::optional(u"MYR"_s));
    }

    void takesTheMoreFrequentOfTwo() {
        QCOMPARE(currencyIn({u"Total CHF 20.00"_s, u"Card CHF 20.00"_s, u"= EUR 20.80"_s}),
                 std::optional(u"CHF"_s));
    }

    void findsNoneInsideWords() {
        QCOMPARE(currencyIn({u"EUROPA PARK"_s, u"FARM 12"_s, u"krone"_s}), std::nullopt);
        QCOMPARE(currencyIn({}), std::nullopt);
    }

    void writesMoneyAsPeopleDo() {
        QCOMPARE(moneyText(23.5, u"USD"_s), u"$23.50"_s);
        QCOMPARE(moneyText(2980, u"JPY"_s), u"¥2980"_s);
        QCOMPARE(moneyText(486.4, u"CHF"_s), u"CHF 486.40"_s);
        QCOMPARE(moneyText(13.5, u"AUD"_s), u"A$13.50"_s);
        QCOMPARE(moneyText(7, std::nullopt), u"7.00"_s);
    }
};

int currency_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<CurrencyReaderTest>(argc, argv);
}
#include "currency_reader_test.moc"
