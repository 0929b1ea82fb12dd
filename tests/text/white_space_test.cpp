#include "support/test_program.h"
#include "text/white_space.h"

#include <QCoreApplication>

using namespace fennick;

class WhiteSpaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void blanksAreSpacesAndTabsButNoLineBreaks() {
        QCOMPARE(trimmedOfBlanks(QStringLiteral(" \t\u00A0\u3000x y\t ")), QStringLiteral("x y"));
        QCOMPARE(trimmedOfBlanks(QStringLiteral("x\n")), QStringLiteral("x\n"));
    }

    void whiteSpaceIncludesEveryLineBreak() {
        QCOMPARE(trimmedOfWhiteSpace(QStringLiteral("\n\r\v\f\u0085\u2028\u2029 x \n")), QStringLiteral("x"));
        QCOMPARE(trimmedOfWhiteSpace(QStringLiteral(" \n ")), QString());
    }

    void splittingDropsEmptyPieces() {
        QCOMPARE(splitOnWhiteSpace(QStringLiteral("  a\t\nb  c ")),
                 (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
        QVERIFY(splitOnWhiteSpace(QStringLiteral(" \n")).isEmpty());
    }
};

int white_space_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, WhiteSpaceTest>(argc, argv);
}
#include "white_space_test.moc"
