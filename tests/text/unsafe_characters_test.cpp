#include "text/unsafe_characters.h"

#include <QTest>

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

QTEST_GUILESS_MAIN(UnsafeCharactersTest)
#include "unsafe_characters_test.moc"
