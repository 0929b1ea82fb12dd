#include "engine/drawn_page.h"
#include "engine/recognition/print_region.h"
#include "support/test_program.h"

#include <QGuiApplication>
#include <QRandomGenerator>
#include <QTransform>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize scannerSize(1700, 2340);
constexpr QPoint receiptAt(980, 160);

QImage cafeReceipt() {
    return drawnPage({u"HARBOUR TEA AND CAKE"_s, u"12 Quay Street"_s, u"Scone with jam 4.20"_s,
                      u"Pot of tea 3.10"_s, u"Fruit cake 2.80"_s, u"Total 10.10"_s, u"Cash 20.00"_s,
                      u"Change 9.90"_s, u"Thank you"_s},
                     28);
}

QImage ground(QColor colour) {
    QImage picture(scannerSize, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

// Fibres of cardboard: spots of all sizes, a little darker or lighter than the rest.
QImage cardboard() {
    QImage picture = ground(QColor(165, 150, 140));
    QPainter painter(&picture);
    QRandomGenerator random(7);
    for (int spot = 0; spot < 30'000; ++spot) {
        const int shade = random.bounded(-18, 18);
        painter.fillRect(random.bounded(picture.width()), random.bounded(picture.height()),
                         1 + random.bounded(6), 1 + random.bounded(4),
                         QColor(165 + shade, 150 + shade, 140 + shade));
    }
    return picture;
}

QImage withReceipt(QImage picture, const QImage &paper = cafeReceipt(), QPoint at = receiptAt) {
    QPainter(&picture).drawImage(at, paper);
    return picture;
}

} // namespace

class PrintRegionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printIsFoundWhateverItLiesOn_data() {
        QTest::addColumn<QImage>("page");
        QTest::newRow("open lid") << withReceipt(ground(QColor(35, 35, 38)));
        QTest::newRow("white lid") << withReceipt(ground(QColor(244, 244, 246)));
        QTest::newRow("cardboard") << withReceipt(cardboard());
        QTest::newRow("at the edge") << withReceipt(cardboard(), cafeReceipt(),
                                                    QPoint(scannerSize.width() - cafeReceipt().width(), 0));
    }
    void printIsFoundWhateverItLiesOn() {
        QFETCH(QImage, page);
        const auto region = printRegion(greyPicture(page));
        QVERIFY(region);
        QVERIFY(region->isUpright);
        const QSize paper = cafeReceipt().size();
        const QRect place(QByteArray(QTest::currentDataTag()) == "at the edge"
                              ? QPoint(scannerSize.width() - paper.width(), 0)
                              : receiptAt,
                          paper);
        QVERIFY2(place.adjusted(-20, -20, 20, 20).contains(region->box), qPrintable(described(region->box)));
        QVERIFY2(region->box.height() > 0.7 * paper.height(), qPrintable(described(region->box)));
        QVERIFY2(region->box.width() > 0.5 * paper.width(), qPrintable(described(region->box)));
    }

    void columnOfAmountsBelongsToTheReceipt() {
        QImage paper(700, 900, QImage::Format_RGB32);
        paper.fill(Qt::white);
        QPainter painter(&paper);
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(28);
        painter.setFont(font);
        for (int row = 0; row < 12; ++row) {
            painter.drawText(40, 80 + 60 * row, u"Cake and tea"_s);
            painter.drawText(520, 80 + 60 * row, u"12.50"_s);
        }
        painter.end();
        const auto region = printRegion(greyPicture(withReceipt(ground(QColor(35, 35, 38)), paper)));
        QVERIFY(region);
        QVERIFY2(region->box.right() > receiptAt.x() + 570, qPrintable(described(region->box)));
    }

    void linesOnTheirSideAreTold_data() {
        QTest::addColumn<int>("degrees");
        QTest::newRow("clockwise") << 90;
        QTest::newRow("counter-clockwise") << -90;
    }
    void linesOnTheirSideAreTold() {
        QFETCH(int, degrees);
        const QImage paper = cafeReceipt().transformed(QTransform().rotate(degrees));
        const auto region = printRegion(greyPicture(withReceipt(cardboard(), paper, QPoint(200, 160))));
        QVERIFY(region);
        QVERIFY(!region->isUpright);
    }

    void pageWithoutPrintHasNone_data() {
        QTest::addColumn<QImage>("page");
        QTest::newRow("white") << ground(Qt::white);
        QTest::newRow("black") << ground(Qt::black);
        QTest::newRow("one pixel") << QImage(1, 1, QImage::Format_RGB32);
        QTest::newRow("some holes") << [] {
            QImage picture = ground(Qt::white);
            QPainter painter(&picture);
            painter.setBrush(Qt::black);
            for (int hole = 0; hole < 6; ++hole) {
                painter.drawEllipse(60, 200 + 350 * hole, 30, 30);
            }
            return picture;
        }();
    }
    void pageWithoutPrintHasNone() {
        QFETCH(QImage, page);
        QVERIFY(!printRegion(greyPicture(page)));
    }

    void nullPictureHasNone() { QVERIFY(!printRegion({})); }

private:
    static QString described(const QRect &box) {
        return u"%1,%2 %3x%4"_s.arg(box.x()).arg(box.y()).arg(box.width()).arg(box.height());
    }
};

int print_region_test(int argc, char **argv) {
    return test::runTest<QGuiApplication, PrintRegionTest>(argc, argv);
}
#include "print_region_test.moc"
