#include "support/test_program.h"
#include "text/search_text.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class SearchTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void caseAndAccentsMakeNoDifference_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("plain") << u"Dockside DELI"_s << u"dockside deli"_s;
        QTest::newRow("composed") << u"Café"_s << u"cafe"_s;
        QTest::newRow("decomposed") << u"Cafe\u0301"_s << u"cafe"_s;
        QTest::newRow("umlaut") << u"BÄCKEREI"_s << u"backerei"_s;
        QTest::newRow("sharp s") << u"Straße"_s << u"strasse"_s;
        QTest::newRow("wide letters") << u"ＡＢＣ"_s << u"abc"_s;
        QTest::newRow("Greek") << u"ΚΑΦΈ"_s << u"καφε"_s;
        QTest::newRow("Japanese") << u"寿司屋"_s << u"寿司屋"_s;
    }
    void caseAndAccentsMakeNoDifference() {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(searchText(text), expected);
        QCOMPARE(searchText(expected), expected);
    }

    void wordStandsByItself() {
        QVERIFY(containsWord(u"12 eur paid"_s, u"eur"_s));
        QVERIFY(containsWord(u"eur"_s, u"eur"_s));
        QVERIFY(containsWord(u"restaurateur, eur"_s, u"eur"_s));
        QVERIFY(!containsWord(u"restaurateur"_s, u"eur"_s));
        QVERIFY(!containsWord(u"europa"_s, u"eur"_s));
    }
};

int search_text_test(int argc, char **argv) {
    return runTest<QCoreApplication, SearchTextTest>(argc, argv);
}
#include "search_text_test.moc"
