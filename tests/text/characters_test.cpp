#include "support/test_program.h"
#include "text/characters.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

class CharactersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shortenedTextEndsWithAWholeCharacter() {
        QCOMPARE(shortened(u"e\u0301e\u0301e\u0301"_s, 2), u"e\u0301e\u0301"_s);
        QCOMPARE(shortened(u"abc"_s, 5), u"abc"_s);
        QCOMPARE(shortened(QString(), 5), QString());
        const QString family = u"\U0001F469\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"_s;
        QCOMPARE(shortened(family.repeated(600), 500), family.repeated(500));
    }

    void characterWithoutEndIsShortened() {
        QCOMPARE(shortened(u'e' + QString(100'000, QChar(0x0301)), 3), u'e' + QString(47, QChar(0x0301)));
        const QString wide = u"\U0001F9B0"_s; // of two units
        const QString odd = u"e\u200D"_s + QString(u"\u200D"_s) + wide.repeated(1);
        QVERIFY(shortened(odd, 4) == odd);
        QVERIFY(!shortened(u'e' + QString(u"\U0001D165"_s).repeated(1000), 1).back().isHighSurrogate());
    }

    void composedAndDecomposedTextsAreEqual() {
        QVERIFY(canonicallyEqual(u"Caf\u00E9", u"Cafe\u0301"));
        QVERIFY(!canonicallyEqual(u"Caf\u00E9", u"Cafe"));
    }

    void canonicalEqualityMindsLetterCase() { QVERIFY(!canonicallyEqual(u"Cafe", u"cafe")); }

    void unpairedSurrogatesCompareWithoutHarm() {
        const QString half(QChar(0xD83D));
        QVERIFY(canonicallyEqual(half, half));
        QVERIFY(!canonicallyEqual(half, u"x"));
    }

    void scalarOrderPutsEmojiAfterLastPlaneZeroCharacter() {
        QVERIFY(compareScalars(u"\U0001F600", u"\uFFFD") > 0);
        QVERIFY(compareScalars(u"2024", u"2025") < 0);
        QCOMPARE(compareScalars(u"2024", u"2024"), 0);
    }

    void firstCharactersCountsWhatAPersonSees() {
        const QString family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_s; // one character
        const QString text = u"e\u0301"_s + family + u"xyz"_s;
        QCOMPARE(firstCharacters(text, 1), u"e\u0301"_s);
        QCOMPARE(firstCharacters(text, 2), u"e\u0301"_s + family);
        QCOMPARE(firstCharacters(text, 3), u"e\u0301"_s + family + u'x');
    }

    void firstCharactersNeverSplitsASurrogatePair() {
        const QString faces = u"\U0001F600"_s.repeated(600);
        QCOMPARE(firstCharacters(faces, 500).size(), 1000);
    }

    void firstCharactersLeavesShortTextsWhole() {
        QCOMPARE(firstCharacters(u"short"_s, 500), u"short"_s);
        QCOMPARE(firstCharacters(QString(), 500), QString());
    }

    void unpairedSurrogatesAreReplaced() {
        const QString broken = u'a' + QString(QChar(0xD83D)) + u'b';
        QCOMPARE(wellFormed(broken), u"a\uFFFDb"_s);
        QCOMPARE(wellFormed(u"a\U0001F600b"_s), u"a\U0001F600b"_s);
        QCOMPARE(wellFormed(u"\U0001F600"_s + broken), u"\U0001F600a\uFFFDb"_s);
    }

    void firstCharacterTakesTheFullUpperCaseMapping() {
        QCOMPARE(firstCharacterUpperCased(u"ßtraße"_s), u"SStraße"_s);
        QCOMPARE(firstCharacterUpperCased(u"ﬁsh"_s), u"FIsh"_s);
        QCOMPARE(firstCharacterUpperCased(u"e\u0301clair"_s), u"E\u0301clair"_s);
        QCOMPARE(firstCharacterUpperCased(u"lUNCH"_s), u"LUNCH"_s);
        QCOMPARE(firstCharacterUpperCased(QString()), QString());
    }

    void caseMappingIgnoresTheUsersLocale() {
        QLocale::setDefault(QLocale(QLocale::Turkish));
        QCOMPARE(upperCased(u"i"_s), u"I"_s);
        QCOMPARE(lowerCased(u"PDF I"_s), u"pdf i"_s);
        QLocale::setDefault(QLocale::c());
    }
};

int characters_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, CharactersTest>(argc, argv);
}
#include "characters_test.moc"
