#include "engine/recognition/picture_size.h"
#include "support/test_program.h"

#include <limits>

using namespace fennick;
using namespace fennick::engine;

class PictureSizeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leavesOrdinaryPicturesAlone() { QCOMPARE(recognisableSize({4000, 3000}), QSize(4000, 3000)); }

    void reducesLargePicturesInProportion() {
        const QSize size = recognisableSize({8000, 6000});
        QCOMPARE(size, QSize(4000, 3000));
    }

    void rendersAFourPageAtThreeHundredDotsPerInch() { QCOMPARE(renderSize({595, 842}), QSize(2479, 3508)); }

    void rendersGiantPagesSmall() {
        const QSize size = renderSize({14400, 14400});
        QVERIFY(static_cast<qint64>(size.width()) * size.height() <= 12'100'000);
        QVERIFY(renderSize({1e9, 1}).width() <= 20000);
    }

    void rendersNoPageWithoutArea() {
        QVERIFY(renderSize({0, 842}).isEmpty());
        QVERIFY(renderSize({std::numeric_limits<double>::quiet_NaN(), 1}).isEmpty());
        QVERIFY(renderSize({std::numeric_limits<double>::infinity(), 1}).isEmpty());
    }
};

int picture_size_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<PictureSizeTest>(argc, argv);
}
#include "picture_size_test.moc"
