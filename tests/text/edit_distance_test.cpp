#include "support/test_program.h"
#include "text/edit_distance.h"

using namespace fennick;

class EditDistanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void countsEdits() {
        QCOMPARE(editDistance(u"", u""), 0);
        QCOMPARE(editDistance(u"total", u"total"), 0);
        QCOMPARE(editDistance(u"total", u"totai"), 1);
        QCOMPARE(editDistance(u"total", u"tota"), 1);
        QCOMPARE(editDistance(u"", u"abc"), 3);
        QCOMPARE(editDistance(u"kitten", u"sitting"), 3);
    }

    void measuresLikeness() {
        QCOMPARE(similarity(u"", u""), 1.0);
        QCOMPARE(similarity(u"abcd", u"abcd"), 1.0);
        QCOMPARE(similarity(u"abcd", u"abcx"), 0.75);
        QCOMPARE(similarity(u"abcd", u"wxyz"), 0.0);
    }
};

int edit_distance_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<EditDistanceTest>(argc, argv);
}
#include "edit_distance_test.moc"
