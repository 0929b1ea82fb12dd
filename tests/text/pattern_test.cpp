#include "support/test_program.h"
#include "text/pattern.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

class PatternTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWholeTextMustMatch() {
        QVERIFY(matchesWhole(u"12:30"_s, R"(\d{2}:\d{2})"));
        QVERIFY(!matchesWhole(u"12:30:05"_s, R"(\d{2}:\d{2})"));
        QVERIFY(!matchesWhole(u" 12:30"_s, R"(\d{2}:\d{2})"));
    }

    void aTrailingLineFeedDoesNotSlipThrough() { QVERIFY(!matchesWhole(u"12:30\n"_s, R"(\d{2}:\d{2})")); }

    void digitsAreThoseOfAnyScript() { QVERIFY(matchesWhole(u"١٢:٣٠"_s, R"(\d{2}:\d{2})")); }

    void lettersInABracketAreAsciiAndCaseSensitive() {
        QVERIFY(matchesWhole(u"EUR"_s, "[A-Z]{3}"));
        QVERIFY(!matchesWhole(u"eur"_s, "[A-Z]{3}"));
        QVERIFY(!matchesWhole(u"ÄUR"_s, "[A-Z]{3}"));
    }
};

int pattern_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, PatternTest>(argc, argv);
}
#include "pattern_test.moc"
