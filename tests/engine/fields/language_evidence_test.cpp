#include "engine/engine_lines.h"
#include "engine/fields/language_evidence.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class LanguageEvidenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void knowsTheLanguageByItsWords_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("language");
        QTest::newRow("German") << QStringList{u"Zwischensumme 10,00"_s, u"Gegeben 20,00"_s,
                                               u"Rückgeld 10,00"_s}
                                << u"de"_s;
        QTest::newRow("Polish") << QStringList{u"PARAGON FISKALNY"_s, u"GOTÓWKA 20,00"_s, u"RESZTA 3,00"_s}
                                << u"pl"_s;
        QTest::newRow("Finnish, accents lost")
            << QStringList{u"YHTEENSA 10,00"_s, u"KATEINEN 20,00"_s, u"KUITTI"_s} << u"fi"_s;
        QTest::newRow("Turkish") << QStringList{u"TOPKDV *3,00"_s, u"TOPLAM *33,00"_s, u"NAKIT *50,00"_s}
                                 << u"tr"_s;
        QTest::newRow("Indonesian") << QStringList{u"Pembulatan 0"_s, u"Kembalian 5.000"_s, u"Tunai 50.000"_s}
                                    << u"id"_s;
    }
    void knowsTheLanguageByItsWords() {
        QFETCH(QStringList, lines);
        QFETCH(QString, language);
        const Languages languages = readLanguages(linesOf(lines), {});
        QVERIFY2(languages.contains(language), qPrintable(languages.values().join(u' ')));
    }

    void takesTheLanguagesOfTheCountry() {
        QCOMPARE(readLanguages(linesOf({u"Total 3.00"_s}), {{u"BE"_s, 5.0}}),
                 (Languages{u"nl"_s, u"fr"_s, u"de"_s}));
    }

    void namesNoneWithoutEvidence() {
        QCOMPARE(readLanguages(linesOf({u"Corner Shop"_s, u"Tea 3.00"_s, u"Total 3.00"_s}), {}), Languages{});
        QCOMPARE(readLanguages({}, {}), Languages{});
    }
};

int language_evidence_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<LanguageEvidenceTest>(argc, argv);
}
#include "language_evidence_test.moc"
