#include "support/test_program.h"
#include "text/pattern.h"

#include <QCoreApplication>

using namespace fennick;

class PatternTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWholeTextMustMatch() {
        QVERIFY(matchesWhole(QStringLiteral("12:30"), R"(\d{2}:\d{2})"));
        QVERIFY(!matchesWhole(QStringLiteral("12:30:05"), R"(\d{2}:\d{2})"));
        QVERIFY(!matchesWhole(QStringLiteral(" 12:30"), R"(\d{2}:\d{2})"));
    }

    void aTrailingLineFeedDoesNotSlipThrough() {
        QVERIFY(!matchesWhole(QStringLiteral("12:30\n"), R"(\d{2}:\d{2})"));
    }

    void digitsAreThoseOfAnyScript() { QVERIFY(matchesWhole(QStringLiteral("١٢:٣٠"), R"(\d{2}:\d{2})")); }

    void lettersInABracketAreAsciiAndCaseSensitive() {
        QVERIFY(matchesWhole(QStringLiteral("EUR"), "[A-Z]{3}"));
        QVERIFY(!matchesWhole(QStringLiteral("eur"), "[A-Z]{3}"));
        QVERIFY(!matchesWhole(QStringLiteral("ÄUR"), "[A-Z]{3}"));
    }
};

int pattern_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, PatternTest>(argc, argv);
}
#include "pattern_test.moc"
