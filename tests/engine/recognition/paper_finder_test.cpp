#include "engine/drawn_page.h"
#include "engine/recognition/paper_finder.h"
#include "support/test_program.h"

#include <QGuiApplication>
#include <QLineF>
#include <QPainterPath>
#include <QTransform>

#include <allheaders.h>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize tableSize(900, 1200);

QImage table(QColor colour = QColor(60, 45, 40)) {
    QImage picture(tableSize, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

QImage page() {
    return drawnPage(QStringList(12, u"HARBOUR TEA AND CAKE 12.50"_s), 24);
}

// `paper` on `picture`, its corners at `corners`: a photograph from any side.
QImage withPaper(QImage picture, const QImage &paper, const PaperCorners &corners) {
    const QRectF whole(QPointF(0, 0), paper.size());
    QTransform view;
    QTransform::quadToQuad(
        QPolygonF({whole.topLeft(), whole.topRight(), whole.bottomRight(), whole.bottomLeft()}),
        QPolygonF(QList<QPointF>(corners.begin(), corners.end())), view);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    painter.setTransform(view);
    painter.drawImage(0, 0, paper);
    return picture;
}

const PaperCorners fromTheFront = {QPointF(220, 110), QPointF(680, 110), QPointF(780, 1080),
                                   QPointF(120, 1080)};
const PaperCorners fromTheSide = {QPointF(130, 60), QPointF(760, 190), QPointF(760, 980), QPointF(130, 1140)};
const PaperCorners turned = {QPointF(250, 100), QPointF(800, 300), QPointF(640, 1050), QPointF(60, 880)};
const PaperCorners upright = {QPointF(150, 100), QPointF(750, 100), QPointF(750, 1100), QPointF(150, 1100)};

double furthest(const PaperCorners &left, const PaperCorners &right) {
    double distance = 0;
    for (size_t index = 0; index < left.size(); ++index)
        distance = std::max(distance, QLineF(left[index], right[index]).length());
    return distance;
}

double darkestGrey(const GreyPicture &picture, int x) {
    double darkest = 255;
    for (int y = 10; y < pixGetHeight(picture.get()) - 10; ++y) {
        l_uint32 level = 0;
        pixGetPixel(picture.get(), x, y, &level);
        darkest = std::min(darkest, static_cast<double>(level));
    }
    return darkest;
}

} // namespace

class PaperFinderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTheCorners_data() {
        QTest::addColumn<PaperCorners>("corners");
        QTest::newRow("from the front") << fromTheFront;
        QTest::newRow("from the side") << fromTheSide;
        QTest::newRow("turned") << turned;
        QTest::newRow("upright") << upright;
    }
    void findsTheCorners() {
        QFETCH(PaperCorners, corners);
        const auto found = paperCorners(greyPicture(withPaper(table(), page(), corners)));
        QVERIFY(found);
        QVERIFY2(furthest(*found, corners) < 8, qPrintable(QString::number(furthest(*found, corners))));
    }

    void bearsAFingerOnTheEdge() {
        QImage picture = withPaper(table(), page(), fromTheFront);
        QPainter painter(&picture);
        painter.setBrush(QColor(70, 50, 45));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(QPointF(160, 600), 40, 25);
        painter.end();
        const auto found = paperCorners(greyPicture(picture));
        QVERIFY(found);
        QVERIFY(furthest(*found, fromTheFront) < 12);
    }

    void claimsNoPaperWhereNoneIsSeenWhole_data() {
        QTest::addColumn<QImage>("picture");
        QTest::newRow("table alone") << table();
        QTest::newRow("page fills the picture") << page();
        QTest::newRow("page and nothing else, grey") << [] {
            QImage grey = page();
            QPainter(&grey).fillRect(grey.rect(), QColor(0, 0, 0, 60));
            return grey;
        }();
        QTest::newRow("cut off by the edge") << withPaper(
            table(), page(), {QPointF(-90, 110), QPointF(680, 110), QPointF(780, 1080), QPointF(-120, 1080)});
        QTest::newRow("hardly lighter than the table")
            << withPaper(table(QColor(225, 225, 220)), page(), fromTheFront);
        QTest::newRow("a stamp on a table") << withPaper(
            table(), page(), {QPointF(400, 400), QPointF(480, 410), QPointF(470, 500), QPointF(395, 490)});
        QImage round = table();
        QPainter painter(&round);
        painter.setBrush(Qt::white);
        painter.drawEllipse(round.rect().adjusted(60, 60, -60, -60));
        painter.end();
        QTest::newRow("a plate") << round;
        QTest::newRow("one pixel") << QImage(1, 1, QImage::Format_RGB32);
    }
    void claimsNoPaperWhereNoneIsSeenWhole() {
        QFETCH(QImage, picture);
        QVERIFY(!paperCorners(greyPicture(picture)));
    }

    void showsThePaperFromAbove() {
        const GreyPicture flat = seenFromAbove(greyPicture(withPaper(table(), page(), fromTheFront))).picture;
        const int width = pixGetWidth(flat.get());
        QVERIFY(std::abs(width - 660) < 15);
        QVERIFY(std::abs(pixGetHeight(flat.get()) - 975) < 25);
        // The table is gone at both edges; the print is not.
        QVERIFY(darkestGrey(flat, 6) > 150);
        QVERIFY(darkestGrey(flat, width - 7) > 150);
        QVERIFY(darkestGrey(flat, width / 4) < 90);
    }

    void leavesTheRestAlone_data() {
        QTest::addColumn<QImage>("picture");
        QTest::newRow("no paper") << table();
        QTest::newRow("a scan") << page();
        QTest::newRow("a rectangle") << withPaper(table(), page(), upright);
    }
    void leavesTheRestAlone() {
        QFETCH(QImage, picture);
        const GreyPicture before = greyPicture(picture);
        const GreyPicture after = seenFromAbove(greyPicture(picture)).picture;
        int isSame = 0;
        QVERIFY(pixEqual(before.get(), after.get(), &isSame) == 0);
        QVERIFY(isSame != 0);
        QVERIFY(!seenFromAbove({}).picture);
    }
};

int paper_finder_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, PaperFinderTest>(argc, argv);
}
#include "paper_finder_test.moc"
