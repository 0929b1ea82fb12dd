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
        QTest::addColumn<QString>("code");
        const auto rows = [](const QString &code, const QStringList &lines) {
            for (const QString &line : lines)
                QTest::newRow(qPrintable(line)) << line << code;
        };
        rows(u"MYR"_s, {u"HARBOUR SDN BHD"_s, u"No 3, Jalan Bayu"_s, u"40000 Shah Alam"_s, u"Johor"_s,
                        u"GST ID No: 001234567890"_s, u"Restoran Bayu"_s});
        rows(u"GBP"_s, {u"VAT no GB 123 4567 89"_s, u"Leeds LS1 4AP"_s, u"London"_s});
        rows(u"AUD"_s, {u"ABN 12 345 678 901"_s, u"Harbour Pty Ltd"_s, u"Sydney NSW 2000"_s});
        rows(u"CAD"_s, {u"HST 13%"_s, u"Toronto"_s, u"Ottawa K1A 0B1"_s});
        rows(u"CHF"_s, {u"CHE-123.456.789 MWST"_s, u"8001 Zürich"_s});
        rows(u"INR"_s, {u"GSTIN 29ABCDE"_s, u"CGST 9%"_s, u"Harbour Pvt Ltd"_s});
        rows(u"SEK"_s, {u"Org.nr 556000-0000"_s, u"Kvitto"_s});
        rows(u"EUR"_s, {u"USt-IdNr. DE123456789"_s, u"SIRET 123"_s});
        rows(u"JPY"_s, {u"合計"_s, u"Tokyo"_s});
        rows(u"USD"_s, {u"Columbus, OH 43215"_s});
    }
    void knowsCountries() {
        QFETCH(QString, line);
        QFETCH(QString, code);
        const QHash<QString, int> found = countryEvidence(linesOf({line}));
        QVERIFY(found.value(code) > 0);
        QCOMPARE(found.size(), 1);
    }

    void countsEachKindOnce() {
        const QHash<QString, int> found = countryEvidence(
            linesOf({u"HARBOUR SDN BHD"_s, u"HARBOUR SDN BHD"_s, u"Jalan Bayu"_s, u"Selangor"_s}));
        QCOMPARE(found.value(u"MYR"_s), 3);
    }

    void findsNoneInOrdinaryText() {
        QVERIFY(countryEvidence(linesOf({u"Corner Shop"_s, u"Total 5.00"_s})).isEmpty());
        QVERIFY(countryEvidence({}).isEmpty());
    }
};

int country_evidence_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<CountryEvidenceTest>(argc, argv);
}
#include "country_evidence_test.moc"
