#include "engine/recognition/recognition_passes.h"
#include "support/test_program.h"

#include <QCoreApplication>

#include <allheaders.h>

#include <atomic>
#include <cstdlib>
#include <thread>

using namespace fennick;
using namespace fennick::engine;

namespace {

std::atomic<const void *> watchedPixels;
std::atomic<int> timesFreed;

void freeAndCount(void *pixels) {
    if (pixels == watchedPixels) {
        ++timesFreed;
    }
    std::free(pixels);
}

} // namespace

class RecognitionPassesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A user that the picture's count has lost frees it under the others' hands.
    void passesOnSeveralThreadsMayShareAPage_data() {
        QTest::addColumn<int>("letterHeight");
        QTest::newRow("enlarged") << 10;
        QTest::newRow("made smaller") << 60;
    }
    void passesOnSeveralThreadsMayShareAPage() {
        QFETCH(int, letterHeight);
        setPixMemoryManager(std::malloc, freeAndCount);
        {
            const PreparedPage page{.picture = GreyPicture(pixCreate(16, 16, 8)),
                                    .letterHeight = letterHeight};
            timesFreed = 0;
            watchedPixels = pixGetData(page.picture.get());
            const auto lookOften = [&page] {
                for (int count = 0; count < 20'000; ++count) {
                    (void)pictureFor(page, recognitionPasses.front());
                }
            };
            {
                const std::jthread one(lookOften);
                const std::jthread another(lookOften);
            }
            QCOMPARE(timesFreed, 0);
        }
        QCOMPARE(timesFreed, 1);
    }
};

int recognition_passes_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, RecognitionPassesTest>(argc, argv);
}
#include "recognition_passes_test.moc"
