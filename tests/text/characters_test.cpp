#include "support/test_program.h"
#include "text/characters.h"

#include <QCoreApplication>

using namespace fennick;

class CharactersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shortenedTextEndsWithAWholeCharacter() {
        QCOMPARE(shortened(QStringLiteral("e\u0301e\u0301e\u0301"), 2), QStringLiteral("e\u0301e\u0301"));
        QCOMPARE(shortened(QStringLiteral("abc"), 5), QStringLiteral("abc"));
        QCOMPARE(shortened(QString(), 5), QString());
        const QString family = QStringLiteral("\U0001F469\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466");
        QCOMPARE(shortened(family.repeated(600), 500), family.repeated(500));
    }

    void characterWithoutEndIsShortened() {
        QCOMPARE(shortened(u'e' + QString(100'000, QChar(0x0301)), 3), u'e' + QString(47, QChar(0x0301)));
        const QString wide = QStringLiteral("\U0001F9B0"); // of two units
        const QString odd = QStringLiteral("e\u200D") + QString(QStringLiteral("\u200D")) + wide.repeated(1);
        QVERIFY(shortened(odd, 4) == odd);
        QVERIFY(!shortened(u'e' + QString(QStringLiteral("\U0001D165")).repeated(1000), 1)
                     .back()
                     .isHighSurrogate());
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
        const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467"); // one character
        const QString text = QStringLiteral("e\u0301") + family + QStringLiteral("xyz");
        QCOMPARE(firstCharacters(text, 1), QStringLiteral("e\u0301"));
        QCOMPARE(firstCharacters(text, 2), QStringLiteral("e\u0301") + family);
        QCOMPARE(firstCharacters(text, 3), QStringLiteral("e\u0301") + family + u'x');
    }

    void firstCharactersNeverSplitsASurrogatePair() {
        const QString faces = QStringLiteral("\U0001F600").repeated(600);
        QCOMPARE(firstCharacters(faces, 500).size(), 1000);
    }

    void firstCharactersLeavesShortTextsWhole() {
        QCOMPARE(firstCharacters(QStringLiteral("short"), 500), QStringLiteral("short"));
        QCOMPARE(firstCharacters(QString(), 500), QString());
    }

    void unpairedSurrogatesAreReplaced() {
        const QString broken = u'a' + QString(QChar(0xD83D)) + u'b';
        QCOMPARE(wellFormed(broken), QStringLiteral("a\uFFFDb"));
        QCOMPARE(wellFormed(QStringLiteral("a\U0001F600b")), QStringLiteral("a\U0001F600b"));
        QCOMPARE(wellFormed(QStringLiteral("\U0001F600") + broken), QStringLiteral("\U0001F600a\uFFFDb"));
    }

    void firstCharacterTakesTheFullUpperCaseMapping() {
        QCOMPARE(firstCharacterUpperCased(QStringLiteral("ßtraße")), QStringLiteral("SStraße"));
        QCOMPARE(firstCharacterUpperCased(QStringLiteral("ﬁsh")), QStringLiteral("FIsh"));
        QCOMPARE(firstCharacterUpperCased(QStringLiteral("e\u0301clair")), QStringLiteral("E\u0301clair"));
        QCOMPARE(firstCharacterUpperCased(QStringLiteral("lUNCH")), QStringLiteral("LUNCH"));
        QCOMPARE(firstCharacterUpperCased(QString()), QString());
    }

    void caseMappingIgnoresTheUsersLocale() {
        QLocale::setDefault(QLocale(QLocale::Turkish));
        QCOMPARE(upperCased(QStringLiteral("i")), QStringLiteral("I"));
        QCOMPARE(lowerCased(QStringLiteral("PDF I")), QStringLiteral("pdf i"));
        QLocale::setDefault(QLocale::c());
    }
};

int characters_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, CharactersTest>(argc, argv);
}
#include "characters_test.moc"
