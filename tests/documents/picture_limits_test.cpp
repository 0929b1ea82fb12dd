#include "documents/picture_limits.h"
#include "support/test_program.h"

#include <limits>

using namespace fennick;

class PictureLimitsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void refusesBombs() {
        for (const PictureLimits &limits : {engineLimits, converterLimits, pdfImageLimits}) {
            QVERIFY(limits.allow(8000, 6000));
            QVERIFY(!limits.allow(100'000, 100'000));
            QVERIFY(!limits.allow(std::numeric_limits<int>::max(), std::numeric_limits<int>::max()));
            QVERIFY(!limits.allow(0, 100));
            QVERIFY(!limits.allow(100, -1));
        }
    }

    void eachProgramHasItsOwnLargestPicture() {
        QVERIFY(engineLimits.allow(10'000, 10'000));
        QVERIFY(!engineLimits.allow(10'000, 10'001));
        QVERIFY(converterLimits.allow(20'000, 10'000));
        QVERIFY(!converterLimits.allow(20'000, 10'001));
        QVERIFY(pdfImageLimits.allow(10'000, 10'000));
        QVERIFY(!pdfImageLimits.allow(10'000, 10'001));
    }
};

int picture_limits_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<PictureLimitsTest>(argc, argv);
}
#include "picture_limits_test.moc"
