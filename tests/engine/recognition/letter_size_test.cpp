#include "engine/drawn_page.h"
#include "engine/recognition/letter_size.h"
#include "support/test_program.h"

#include <QGuiApplication>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class LetterSizeTest : public QObject {
    Q_OBJECT

    const QStringList rows_ = {u"CORNER SHOP"_s, u"GREEN TEA 2.50"_s, u"TOTAL 2.50"_s};

private Q_SLOTS:
    void measuresLetters_data() {
        QTest::addColumn<int>("pixelSize");
        QTest::newRow("small") << 16;
        QTest::newRow("medium") << 30;
        QTest::newRow("large") << 60;
    }
    void measuresLetters() {
        QFETCH(int, pixelSize);
        const PrintedArea area = printedArea(greyPicture(drawnPage(rows_, pixelSize)));
        // Capitals of DejaVu Sans are 0.73 of the font's size.
        QVERIFY(std::abs(area.letterHeight - 0.73 * pixelSize) <= 0.12 * pixelSize + 1);
    }

    void findsWhereTheyStand() {
        QImage page = drawnPage(rows_, 30, 2000);
        const PrintedArea area = printedArea(greyPicture(page));
        QVERIFY(area.box.left() >= 28 && area.box.right() < 500);
        QVERIFY(area.box.top() > 60 && area.box.bottom() < 270);
    }

    void isNotMisledByDust() {
        QImage page = drawnPage(rows_, 30);
        for (int dot = 0; dot < 300; ++dot) {
            const int x = 5 + (dot * 37) % (page.width() - 10);
            const int y = 5 + (dot * 91) % (page.height() - 10);
            page.setPixel(x, y, qRgb(0, 0, 0));
        }
        const PrintedArea area = printedArea(greyPicture(page));
        QVERIFY(area.letterHeight >= 18 && area.letterHeight <= 27);
    }

    void findsNoneOnEmptyPaper() {
        QImage white(600, 800, QImage::Format_RGB32);
        white.fill(Qt::white);
        QCOMPARE(printedArea(greyPicture(white)).letterHeight, 0);
        QCOMPARE(printedArea(greyPicture(QImage())).letterHeight, 0);
    }
};

int letter_size_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, LetterSizeTest>(argc, argv);
}
#include "letter_size_test.moc"
