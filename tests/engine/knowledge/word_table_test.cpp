#include "engine/knowledge/table_file.h"
#include "engine/knowledge/word_table.h"
#include "support/test_program.h"

#include <QLocale>
#include <QSet>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class WordTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyRowIsWhole_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QSet<QString>>("meanings");
        QTest::newRow("amounts") << u":/engine/amount_words.txt"_s
                                 << QSet<QString>{u"regional total"_s, u"subtotal"_s,     u"part of total"_s,
                                                  u"paid before"_s,    u"other"_s,        u"final total"_s,
                                                  u"rounding"_s,       u"change"_s,       u"discount"_s,
                                                  u"charge"_s,         u"due"_s,          u"tendered"_s,
                                                  u"card"_s,           u"total"_s,        u"total alone"_s,
                                                  u"mention"_s,        u"tax"_s,          u"inclusive"_s,
                                                  u"within"_s,         u"exclusive"_s,    u"tax table"_s,
                                                  u"tax column"_s,     u"no misreading"_s};
        QTest::newRow("categories") << u":/engine/category_words.txt"_s
                                    << QSet<QString>{u"hotel"_s,         u"fuel"_s,      u"breakfast"_s,
                                                     u"lunch"_s,         u"dinner"_s,    u"coffee"_s,
                                                     u"meal"_s,          u"transport"_s, u"groceries"_s,
                                                     u"entertainment"_s, u"shopping"_s};
        QTest::newRow("dates") << u":/engine/date_words.txt"_s
                               << QSet<QString>{u"date"_s, u"other date"_s, u"time"_s, u"hours"_s};
        QTest::newRow("names") << u":/engine/name_words.txt"_s
                               << QSet<QString>{u"heading"_s,    u"detail"_s,
                                                u"numbered"_s,   u"another"_s,
                                                u"business"_s,   u"registration"_s,
                                                u"legal form"_s, u"legal form before"_s,
                                                u"legal word"_s, u"common"_s};
    }
    void everyRowIsWhole() {
        QFETCH(QString, path);
        QFETCH(QSet<QString>, meanings);
        QSet<QString> seen;
        const QList<QStringList> rows = tableRows(path);
        QVERIFY(!rows.isEmpty());
        for (const QStringList &row : rows) {
            const QString text = row.join(u'|');
            QVERIFY2(row.size() == 3, qPrintable(text));
            QVERIFY2(meanings.contains(row[0]), qPrintable(text));
            QVERIFY2(QLocale(row[1]).language() != QLocale::C, qPrintable(text));
            QVERIFY2(!seen.contains(row[0] + row[1]), qPrintable(text));
            seen.insert(row[0] + row[1]);
            const QStringList phrases = row[2].split(u',');
            for (const QString &phrase : phrases) {
                QVERIFY2(!phrase.trimmed().isEmpty(), qPrintable(text));
            }
        }
    }

    void givesPhrasesOfTheLanguagesAndEnglish() {
        const QStringList german = amountWords().phrases(u"tendered"_s, {u"de"_s});
        QVERIFY(german.contains(u"bar"_s) && german.contains(u"cash"_s));
        const QStringList english = amountWords().phrases(u"tendered"_s, {});
        QVERIFY(!english.contains(u"bar"_s) && english.contains(u"cash"_s));
        QVERIFY(amountWords().phrases(u"nothing of the kind"_s, {}).isEmpty());
    }

    void phrasesHaveNoAccents() {
        QVERIFY(amountWords().phrases(u"change"_s, {u"de"_s}).contains(u"ruckgeld"_s));
        QVERIFY(amountWords().phrases(u"tendered"_s, {u"pl"_s}).contains(u"gotowka"_s));
    }

    void knowsTheLanguagesOfManyCountries() {
        for (const QString &language :
             {u"en"_s, u"de"_s, u"fr"_s, u"es"_s, u"it"_s, u"nl"_s, u"pt"_s, u"sv"_s, u"da"_s, u"no"_s,
              u"fi"_s, u"is"_s, u"pl"_s, u"cs"_s, u"sk"_s, u"sl"_s, u"hr"_s, u"hu"_s, u"ro"_s, u"et"_s,
              u"lv"_s, u"lt"_s, u"sq"_s, u"tr"_s, u"id"_s, u"ms"_s, u"vi"_s, u"sw"_s}) {
            QVERIFY2(knownLanguages().contains(language), qPrintable(language));
            QVERIFY2(!amountWords().phrases(u"final total"_s, {language}).isEmpty(), qPrintable(language));
        }
    }
};

int word_table_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<WordTableTest>(argc, argv);
}
#include "word_table_test.moc"
