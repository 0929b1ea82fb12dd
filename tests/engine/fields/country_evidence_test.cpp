#include "engine/engine_lines.h"
#include "engine/fields/country_evidence.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class CountryEvidenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void knowsCountries_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("country");
        const auto rows = [](const QString &country, const QStringList &lines) {
            for (const QString &line : lines)
                QTest::newRow(qPrintable(line)) << line << country;
        };
        rows(u"MY"_s, {u"HARBOUR SDN BHD"_s, u"40000 Shah Alam"_s, u"Johor"_s, u"GST ID No: 001234567890"_s,
                       u"Tel +60 3 1234 5678"_s});
        rows(u"GB"_s,
             {u"VAT no GB 123 4567 89"_s, u"Leeds LS1 4AP"_s, u"London"_s, u"www.harbour-tea.co.uk"_s});
        rows(u"AU"_s, {u"ABN 12 345 678 901"_s, u"Bay NSW 2000"_s, u"Sydney"_s});
        rows(u"CA"_s, {u"Toronto"_s, u"Bay K1A 0B1"_s});
        rows(u"CH"_s, {u"CHE-123.456.789"_s, u"8001 Zürich"_s, u"8001 ZURICH"_s});
        rows(u"IN"_s, {u"GSTIN 29ABCDE"_s});
        rows(u"SE"_s, {u"Org.nr 556000-0000"_s});
        rows(u"DE"_s, {u"USt-IdNr. DE123456789"_s, u"www.harbour.de"_s, u"Tel. 0049 30 123456"_s});
        rows(u"FR"_s, {u"SIRET 123"_s});
        rows(u"PL"_s, {u"NIP 123-45-67-890"_s, u"00-950 Warszawa"_s});
        rows(u"NP"_s, {u"Kathmandu"_s});
        rows(u"JP"_s, {u"Tokyo"_s});
        rows(u"US"_s, {u"Columbus, OH 43215"_s, u"Redmond, WA 98052"_s});
    }
    void knowsCountries() {
        QFETCH(QString, line);
        const CountryScores scores = countryScores(linesOf({line}));
        const auto country = likeliestCountry(scores);
        QVERIFY(country);
        QTEST(*country, "country");
    }

    void wordOfSeveralLanguagesIsNotEnough() {
        QVERIFY(!likeliestCountry(countryScores(linesOf({u"Total incl. moms 12,00"_s}))));
    }

    void wordsOfALanguageAddUp() {
        const CountryScores scores = countryScores(
            linesOf({u"Kvittering"_s, u"I ALT 120,00"_s, u"Heraf moms 24,00"_s, u"Tak for besøget"_s}));
        QCOMPARE(likeliestCountry(scores), std::optional(u"DK"_s));
    }

    void brandOfOneCountryCounts() {
        QCOMPARE(likeliestCountry(withBrand(countryScores(linesOf({u"Total 5.00"_s})), {u"RO"_s})),
                 std::optional(u"RO"_s));
    }

    void placeOfAnotherCountryLosesAgainstTheAddress() {
        const CountryScores scores = countryScores(
            linesOf({u"Penang Kitchen"_s, u"100 High St"_s, u"Columbus, OH 43215"_s, u"Sales tax 1.20"_s}));
        QCOMPARE(likeliestCountry(scores), std::optional(u"US"_s));
    }

    void findsNoneInOrdinaryText() {
        QVERIFY(countryScores(linesOf({u"Corner Shop"_s, u"Total 5.00"_s})).isEmpty());
        QVERIFY(countryScores({}).isEmpty());
    }

    void knowsTheCountrysTaxRates() {
        QCOMPARE(taxRatesOfLikeliestCountry(countryScores(linesOf({u"USt-IdNr. DE123456789"_s}))),
                 (QList<double>{5, 7, 16, 19}));
        QVERIFY(taxRatesOfLikeliestCountry({}).isEmpty());
    }
};

int country_evidence_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<CountryEvidenceTest>(argc, argv);
}
#include "country_evidence_test.moc"
