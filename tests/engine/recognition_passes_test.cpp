#include "engine/recognition_passes.h"

#include <QTest>

#include <allheaders.h>

#include <thread>

using namespace fennick;

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
        const PreparedPage page{.picture = GreyPicture(pixCreate(16, 16, 8)), .letterHeight = letterHeight};
        const auto lookOften = [&page] {
            for (int count = 0; count < 20'000; ++count) {
                pictureFor(page, recognitionPasses.front());
            }
        };
        {
            const std::jthread one(lookOften);
            const std::jthread another(lookOften);
        }
        QCOMPARE(pixGetRefcount(page.picture.get()), 1);
    }
};

QTEST_GUILESS_MAIN(RecognitionPassesTest)
#include "recognition_passes_test.moc"
