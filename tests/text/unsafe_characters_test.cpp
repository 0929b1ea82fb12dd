#include "support/test_program.h"
#include "text/unsafe_characters.h"

#include <QCoreApplication>

using namespace fennick;

class UnsafeCharactersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void exactlyNineCharactersAreDeleted() {
        QCOMPARE(withoutUnsafeCharacters(QStringLiteral("a\\b/c:d*e?f\"g<h>i|j")),
                 QStringLiteral("abcdefghij"));
        const QString kept = QStringLiteral("Mario's Café $23.50 (2) é; #%&{}\u202E\t  x.");
        QCOMPARE(withoutUnsafeCharacters(kept), kept);
    }
};

int unsafe_characters_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, UnsafeCharactersTest>(argc, argv);
}
#include "unsafe_characters_test.moc"
