#include "support/test_program.h"
#include "text/white_space.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

class WhiteSpaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void blanksAreSpacesAndTabsButNoLineBreaks() {
        QCOMPARE(trimmedOfBlanks(u" \t\u00A0\u3000x y\t "_s), u"x y"_s);
        QCOMPARE(trimmedOfBlanks(u"x\n"_s), u"x\n"_s);
    }

    void whiteSpaceIncludesEveryLineBreak() {
        QCOMPARE(trimmedOfWhiteSpace(u"\n\r\v\f\u0085\u2028\u2029 x \n"_s), u"x"_s);
        QCOMPARE(trimmedOfWhiteSpace(u" \n "_s), QString());
    }

    void splittingDropsEmptyPieces() {
        QCOMPARE(splitOnWhiteSpace(u"  a\t\nb  c "_s), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
        QVERIFY(splitOnWhiteSpace(u" \n"_s).isEmpty());
    }
};

int white_space_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, WhiteSpaceTest>(argc, argv);
}
#include "white_space_test.moc"
