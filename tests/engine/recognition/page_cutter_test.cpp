#include "engine/drawn_page.h"
#include "engine/recognition/page_cutter.h"
#include "support/test_program.h"

#include <QGuiApplication>

#include <allheaders.h>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class PageCutterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cutsBetweenLines() {
        const QImage page = drawnPage(QStringList(20, u"HARBOUR TEA 12.50"_s), 30);
        const std::vector<PageStrip> strips = headingAndRest(greyPicture(page), 22);
        QCOMPARE(strips.size(), size_t{2});
        const int cut = strips[1].top;
        QCOMPARE(strips[0].top, 0);
        QCOMPARE(pixGetHeight(strips[0].picture.get()), cut);
        QCOMPARE(pixGetHeight(strips[1].picture.get()), page.height() - cut);
        QVERIFY(cut > 0 && cut < page.height() / 2);
        for (int x = 0; x < page.width(); ++x)
            QVERIFY(qGray(page.pixel(x, cut)) > 200);
    }

    void leavesAPageWithoutAGapWhole() {
        QImage black(400, 800, QImage::Format_RGB32);
        black.fill(Qt::black);
        const std::vector<PageStrip> strips = headingAndRest(greyPicture(black), 20);
        QCOMPARE(strips.size(), size_t{1});
        QCOMPARE(pixGetHeight(strips[0].picture.get()), 800);
    }

    void bearsAnything() {
        QVERIFY(headingAndRest(nullptr, 20).empty());
        QImage dot(1, 1, QImage::Format_RGB32);
        dot.fill(Qt::white);
        QCOMPARE(headingAndRest(greyPicture(dot), 20).size(), size_t{1});
        QCOMPARE(headingAndRest(greyPicture(dot), 0).size(), size_t{1});
    }
};

int page_cutter_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, PageCutterTest>(argc, argv);
}
#include "page_cutter_test.moc"
