#include "engine/engine_lines.h"
#include "engine/fields/currency_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class CurrencyReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsSymbolsAndCodes_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("code");
        QTest::newRow("dollar") << u"Total $5.00"_s << u"USD"_s;
        QTest::newRow("euro") << u"Total 5,00 €"_s << u"EUR"_s;
        QTest::newRow("pound") << u"Total £5.00"_s << u"GBP"_s;
        QTest::newRow("yen") << u"Total ¥500"_s << u"JPY"_s;
        QTest::newRow("Canadian") << u"Total C$5.00"_s << u"CAD"_s;
        QTest::newRow("Canadian, longer") << u"Total CA$5.00"_s << u"CAD"_s;
        QTest::newRow("Australian") << u"Total A$5.00"_s << u"AUD"_s;
        QTest::newRow("US, longer") << u"Total US$5.00"_s << u"USD"_s;
        QTest::newRow("ringgit") << u"Total RM 5.00"_s << u"MYR"_s;
        QTest::newRow("ringgit in brackets") << u"Total (RM) 5.00"_s << u"MYR"_s;
        QTest::newRow("krona") << u"Totalt 50,00 kr"_s << u"SEK"_s;
        QTest::newRow("krona before") << u"Totalt kr 50,00"_s << u"SEK"_s;
        QTest::newRow("rupee") << u"Total ₹500"_s << u"INR"_s;
        QTest::newRow("rupee in letters") << u"Total Rs. 500.00"_s << u"INR"_s;
        for (const char *code : {"USD", "EUR", "GBP", "JPY", "CAD", "AUD", "CHF", "MYR", "SEK", "INR"})
            QTest::newRow(code) << QStringLiteral("TOTAL %1 12.00").arg(QLatin1StringView(code))
                                << QString(QLatin1StringView(code));
    }
    void readsSymbolsAndCodes() {
        QFETCH(QString, line);
        QFETCH(QString, code);
        QCOMPARE(readCurrency(linesOf({line})), std::optional(code));
    }

    void takesTheDollarsThatAreNamed() {
        QCOMPARE(readCurrency(linesOf({u"Fuel $64.12"_s, u"HST $8.34"_s, u"TOTAL CAD $72.46"_s})),
                 std::optional(u"CAD"_s));
        QCOMPARE(readCurrency(linesOf({u"Total A$13.50"_s, u"Card A$13.50"_s})), std::optional(u"AUD"_s));
    }

    void takesTheCountryIntoAccount() {
        QCOMPARE(
            readCurrency(linesOf({u"HARBOUR SDN BHD"_s, u"Jalan Bayu"_s, u"Total $5.00"_s, u"Cash $5.00"_s})),
            std::optional(u"MYR"_s));
        QCOMPARE(readCurrency(linesOf({u"ABN 12 345 678 901"_s, u"Bay NSW 2000"_s, u"Total $5.00"_s})),
                 std::optional(u"AUD"_s));
        QCOMPARE(readCurrency(linesOf({u"GSTIN 29ABCDE"_s, u"Total 500.00"_s})), std::optional(u"INR"_s));
    }

    void isNotMisledByTaxLettersReadAsDollars() {
        QCOMPARE(
            readCurrency(linesOf({u"HARBOUR SDN BHD"_s, u"Tea 6.00 $"_s, u"Cake 4.20 $"_s, u"Bun 3.10 $"_s})),
            std::optional(u"MYR"_s));
    }

    void takesNoAddressForDollars() {
        QCOMPARE(readCurrency(linesOf({u"12, $S7/1A,"_s, u"12, $57/1A,"_s, u"Lot $3-12"_s})), std::nullopt);
        QCOMPARE(readCurrency(linesOf({u"12, $57/1A,"_s, u"Qty  Price  RM"_s, u"Tea  4.00"_s})),
                 std::optional(u"MYR"_s));
    }

    void takesTheMoreFrequentOfTwo() {
        QCOMPARE(readCurrency(linesOf({u"Total CHF 20.00"_s, u"Card CHF 20.00"_s, u"= EUR 20.80"_s})),
                 std::optional(u"CHF"_s));
    }

    void findsNoneInsideWords() {
        QCOMPARE(readCurrency(linesOf({u"EUROPA PARK"_s, u"FARM 12"_s, u"krone"_s})), std::nullopt);
        QCOMPARE(readCurrency({}), std::nullopt);
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
