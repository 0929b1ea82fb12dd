#include "engine/drawn_page.h"
#include "engine/recognition/contrast_normaliser.h"
#include "engine/recognition/paper_straightener.h"
#include "support/test_program.h"

#include <QGuiApplication>
#include <QTransform>

#include <allheaders.h>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

QImage askewPage(const QImage &page, double degrees) {
    QImage paper(page.size() + QSize(200, 200), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(paper.rect().center());
    painter.rotate(degrees);
    painter.drawImage(-page.width() / 2, -page.height() / 2, page);
    return paper;
}

double slantOf(const GreyPicture &picture) {
    const GreyPicture ink(pixThresholdToBinary(picture.get(), 150));
    float slant = 0;
    float certainty = 0;
    pixFindSkewSweepAndSearch(ink.get(), &slant, &certainty, 4, 2, 15, 1, 0.01F);
    return static_cast<double>(slant);
}

int greyAt(const GreyPicture &picture, int x, int y) {
    l_uint32 level = 0;
    pixGetPixel(picture.get(), x, y, &level);
    return static_cast<int>(level);
}

} // namespace

class PaperStraightenerTest : public QObject {
    Q_OBJECT

    const QStringList rows_ = QStringList(14, u"HARBOUR TEA AND CAKE 12.50"_s);

private Q_SLOTS:
    void levelsTheLines_data() {
        QTest::addColumn<double>("degrees");
        for (const double degrees : {-10.0, -3.0, -1.0, 1.0, 3.0, 10.0})
            QTest::addRow("%.0f degrees", degrees) << degrees;
    }
    void levelsTheLines() {
        QFETCH(double, degrees);
        const GreyPicture askew = greyPicture(askewPage(drawnPage(rows_, 30), degrees));
        QVERIFY(std::abs(slantOf(askew)) > 0.5);
        QVERIFY(std::abs(slantOf(straightened(GreyPicture(pixCopy(nullptr, askew.get()))).picture)) < 0.3);
    }

    void leavesALevelPageAsItIs() {
        const QImage page = drawnPage(rows_, 30);
        const GreyPicture picture = straightened(greyPicture(page)).picture;
        QCOMPARE(pixGetWidth(picture.get()), page.width());
        QCOMPARE(pixGetHeight(picture.get()), page.height());
        QVERIFY(std::abs(slantOf(picture)) < 0.2);
    }

    void paintsDarkEdgesOver() {
        QImage page = drawnPage(rows_, 30);
        QPainter(&page).fillRect(0, 0, page.width(), 25, Qt::black);
        const GreyPicture picture = straightened(greyPicture(page)).picture;
        QVERIFY(greyAt(picture, page.width() / 2, 10) > 150);
    }

    void evensShadowsOut() {
        QImage page = drawnPage(rows_, 30);
        QPainter painter(&page);
        QLinearGradient shadow(0, 0, page.width(), 0);
        shadow.setColorAt(0, QColor(0, 0, 0, 150));
        shadow.setColorAt(1, QColor(0, 0, 0, 0));
        painter.fillRect(page.rect(), shadow);
        painter.end();
        QVERIFY(qGray(page.pixel(page.width() - 5, 20)) - qGray(page.pixel(5, 20)) > 100);
        const GreyPicture even = onEvenPaper(greyPicture(page));
        QVERIFY(std::abs(greyAt(even, page.width() - 5, 20) - greyAt(even, 5, 20)) < 30);
    }

    void keepsThePictureInEveryKindOfStrokes() {
        for (const Strokes strokes :
             {Strokes::asPrinted, Strokes::darkened, Strokes::smoothed, Strokes::thickened}) {
            const GreyPicture picture = withStrokes(greyPicture(drawnPage(rows_, 30)), strokes);
            QVERIFY(picture != nullptr);
            QCOMPARE(pixGetDepth(picture.get()), 8);
            QVERIFY(greyAt(picture, 3, 3) > 240);
        }
        QVERIFY(withStrokes(nullptr, Strokes::darkened) == nullptr);
        QVERIFY(onEvenPaper(nullptr) == nullptr);
        QVERIFY(straightened(nullptr).picture == nullptr);
    }
};

int paper_straightener_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, PaperStraightenerTest>(argc, argv);
}
#include "paper_straightener_test.moc"
