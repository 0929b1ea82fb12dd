#include "support/test_program.h"
#include "text/unsafe_characters.h"

#include <QCoreApplication>

using namespace fennick;
using namespace Qt::StringLiterals;

class UnsafeCharactersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void exactlyNineCharactersAreDeleted() {
        QCOMPARE(withoutUnsafeCharacters(u"a\\b/c:d*e?f\"g<h>i|j"_s), u"abcdefghij"_s);
        const QString kept = u"Mario's Café $23.50 (2) é; #%&{}\u202E\t  x."_s;
        QCOMPARE(withoutUnsafeCharacters(kept), kept);
    }
};

int unsafe_characters_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, UnsafeCharactersTest>(argc, argv);
}
#include "unsafe_characters_test.moc"
