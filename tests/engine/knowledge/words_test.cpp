#include "engine/knowledge/words.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class WordsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsLettersAndDigitsOnly() {
        QCOMPARE(wordsOf(u"GRAND-Total: 23,50"_s), u" grand total 23 50 "_s);
        QCOMPARE(wordsOf(u"Mario's Café"_s), u" marios café "_s);
        QCOMPARE(wordsOf(QString()), u" "_s);
    }

    void accentsAreTakenOff() {
        QCOMPARE(withoutAccents(u"süßer café, læder, øl, żółty, ışık"_s),
                 u"susser cafe, laeder, ol, zolty, isik"_s);
        QCOMPARE(withoutAccents(u"合計"_s), u"合計"_s);
    }

    void findsWholeWordsOnly() {
        const QString words = wordsOf(u"Subtotal and grand total"_s);
        QVERIFY(containsPhrase(words, u"grand total"_s));
        QVERIFY(containsPhrase(words, u"subtotal"_s));
        QVERIFY(!containsPhrase(words, u"sub"_s));
        QVERIFY(!containsPhrase(words, u"rand total"_s));
        QVERIFY(containsAnyPhrase(words, {u"nothing"_s, u"total"_s}));
        QVERIFY(!containsAnyPhrase(words, {}));
    }
};

int words_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<WordsTest>(argc, argv);
}
#include "words_test.moc"
