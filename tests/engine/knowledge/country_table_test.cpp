#include "engine/knowledge/country_table.h"
#include "engine/knowledge/currency_table.h"
#include "engine/knowledge/table_file.h"
#include "support/test_program.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class CountryTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyRowIsOfAKnownKind() {
        static const QSet<QString> kinds = {
            u"currency"_s, u"order"_s, u"calendar"_s, u"languages"_s, u"dial"_s,   u"domain"_s, u"places"_s,
            u"words"_s,    u"tax"_s,   u"post"_s,     u"hint"_s,      u"before"_s, u"rates"_s};
        QSet<QString> seen;
        const QList<QStringList> rows = tableRows(u":/engine/countries.txt"_s);
        for (const QStringList &row : rows) {
            const QString text = row.join(u'|');
            QVERIFY2(row.size() == 3, qPrintable(text));
            QVERIFY2(kinds.contains(row[1]), qPrintable(text));
            QVERIFY2(!row[2].isEmpty() && row[2] == row[2].trimmed(), qPrintable(text));
            QVERIFY2(!seen.contains(row[0] + row[1]), qPrintable(text));
            seen.insert(row[0] + row[1]);
        }
    }

    void everyCountryIsWhole() {
        static const QRegularExpression countryCode(u"^[A-Z]{2}$"_s);
        static const QRegularExpression currencyCode(u"^[A-Z]{3}$"_s);
        QVERIFY(countries().size() >= 60);
        for (const Country &country : countries()) {
            QVERIFY2(countryCode.match(country.code).hasMatch(), qPrintable(country.code));
            QVERIFY2(currencyCode.match(country.currency).hasMatch(), qPrintable(country.code));
            QVERIFY2(!country.places.isEmpty(), qPrintable(country.code));
            QVERIFY2(country.taxNumber.isValid(), qPrintable(country.taxNumber.errorString()));
            QVERIFY2(country.hint.isValid(), qPrintable(country.hint.errorString()));
            QVERIFY2(
                std::ranges::all_of(country.taxRates, [](double rate) { return rate >= 1 && rate < 30; }),
                qPrintable(country.code));
            QCOMPARE(country.currencySince.isValid(), !country.currencyBefore.isEmpty());
            QVERIFY2(country.postcode.isValid(), qPrintable(country.postcode.errorString()));
            QVERIFY2(!country.places.contains(QString()) && !country.words.contains(QString()),
                     qPrintable(country.code));
        }
    }

    void everyLanguageHasWords() {
        const Languages known = knownLanguages();
        for (const Country &country : countries()) {
            QVERIFY2(known.contains(country.languages), qPrintable(country.code));
        }
    }

    void everyPriceStyleIsOfAKnownShape() {
        const QList<QStringList> rows = tableRows(u":/engine/minor_units.txt"_s);
        QVERIFY(!rows.isEmpty());
        for (const QStringList &row : rows) {
            const QString text = row.join(u'|');
            QVERIFY2(row.size() == 3 && (row[0] == u"0" || row[0] == u"3"), qPrintable(text));
            QVERIFY2(row[1].isEmpty() || row[1] == u"space", qPrintable(text));
        }
        QCOMPARE(priceStyle(u"KWD"_s).decimals, 3);
        QCOMPARE(priceStyle(u"JPY"_s).decimals, 0);
        QCOMPARE(priceStyle(u"EUR"_s).decimals, 2);
        QCOMPARE(priceStyle(std::nullopt).decimals, 2);
    }

    void everySignBehindGroupsOfBlanksHasItsPlace() {
        const QList<QStringList> rows = tableRows(u":/engine/blank_groups.txt"_s);
        QVERIFY(!rows.isEmpty());
        for (const QStringList &row : rows) {
            const QString text = row.join(u'|');
            QVERIFY2(row.size() == 2 && (row[0] == u"0" || row[0] == u"2"), qPrintable(text));
            QVERIFY2(!row[1].split(u',').contains(QString()), qPrintable(text));
            QCOMPARE(signsBehindBlankGroups(row[0].toInt()), row[1].split(u','));
        }
        QVERIFY(signsBehindBlankGroups(3).isEmpty());
    }

    void everySignIsOfKnownCurrencies() {
        QSet<QString> known;
        for (const Country &country : countries()) {
            known.insert(country.currency);
            known.insert(country.currencyBefore);
        }
        for (const CurrencySign &sign : currencySigns()) {
            QVERIFY2(sign.pattern.isValid(), qPrintable(sign.pattern.pattern() + sign.pattern.errorString()));
            QVERIFY(!sign.pattern.pattern().isEmpty());
            for (const QString &code : sign.currencies) {
                QVERIFY2(known.contains(code), qPrintable(code));
            }
        }
    }
};

int country_table_test(int argc, char **argv) {
    return test::runTestWithoutApplication<CountryTableTest>(argc, argv);
}
#include "country_table_test.moc"
