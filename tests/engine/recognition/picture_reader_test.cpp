#include "engine/drawn_page.h"
#include "engine/recognition/picture_reader.h"
#include "engine/recognition/recognition_passes.h"
#include "support/test_program.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <atomic>
#include <functional>
#include <random>
#include <thread>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

const QStringList receipt = {u"Corner Shop"_s,     u"12 High Street"_s,   u"Green tea  2.50"_s,
                             u"Black tea  3.50"_s, u"Fruit cake  4.00"_s, u"Total  10.00"_s};

bool anyIsEnough(const QList<Reading> &) {
    return true;
}

bool noneIsEnough(const QList<Reading> &) {
    return false;
}

using Enough = bool (*)(const QList<Reading> &);

// Read again where a busy machine left less time than one reading may take.
QList<Reading> readingsOf(const QList<PdfPage> &pages, Enough isEnough) {
    constexpr int recognitionTime = 25'000; // milliseconds
    QElapsedTimer elapsed;
    QList<Reading> readings;
    do {
        elapsed.start();
        readings = readPages(pages, isEnough).value_or(QList<Reading>());
    } while (elapsed.hasExpired(recognitionTime));
    return readings;
}

QList<Reading> readingsOf(const QImage &picture, Enough isEnough = anyIsEnough) {
    return readingsOf({{.lines = {}, .picture = picture}}, isEnough);
}

bool hasLine(const QList<Reading> &readings, const QString &text) {
    return std::ranges::any_of(readings, [&text](const Reading &reading) {
        return std::ranges::any_of(reading,
                                   [&text](const TextLine &line) { return line.text.simplified() == text; });
    });
}

// `page` lying askew on a dark table, its own background a light grey.
QImage onTable(const QImage &page, double degrees) {
    QImage table(page.width() + 300, page.height() + 300, QImage::Format_RGB32);
    table.fill(QColor(60, 45, 40));
    QPainter painter(&table);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(table.rect().center());
    painter.rotate(degrees);
    painter.drawImage(-page.width() / 2, -page.height() / 2, page);
    return table;
}

// `page` on a dark table, taken from its lower edge: the upper one is further away and shorter.
QImage takenFromBelow(const QImage &page) {
    QImage table(page.width() + 300, page.height() + 200, QImage::Format_RGB32);
    table.fill(QColor(60, 45, 40));
    const double width = page.width();
    const double height = page.height();
    QTransform view;
    QTransform::quadToQuad(
        QPolygonF({{0, 0}, {width, 0}, {width, height}, {0, height}}),
        QPolygonF({{250, 120}, {width + 40, 90}, {width + 200, height + 80}, {80, height + 110}}), view);
    QPainter painter(&table);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(view);
    painter.drawImage(0, 0, page);
    return table;
}

QImage rotated(const QImage &page, int degrees) {
    return page.transformed(QTransform().rotate(degrees));
}

// The middle of what is green in `picture`, as a share of its sides.
QPointF greenPlace(const QImage &picture) {
    QPointF sum;
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            if (colour.green() > 200 && colour.red() < 100) {
                sum += QPointF(x, y);
                ++count;
            }
        }
    }
    return {sum.x() / count / picture.width(), sum.y() / count / picture.height()};
}

// Where a reading has `word`.
QRectF placeOf(const Reading &reading, const QString &word) {
    for (const TextLine &line : reading) {
        for (const TextPiece &piece : line.pieces) {
            if (line.text.mid(piece.start, piece.length) == word) {
                return piece.place;
            }
        }
    }
    return {};
}

QImage withGrain(QImage page, int strength) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> grain(-strength, strength);
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const int level = std::clamp(qGray(page.pixel(x, y)) + grain(random), 0, 255);
            page.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return page;
}

QImage faint(QImage page) {
    QPainter(&page).fillRect(page.rect(), QColor(255, 255, 255, 140));
    return page;
}

} // namespace

Q_DECLARE_METATYPE(std::function<QImage(const QImage &)>)

class PictureReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsPictures_data() {
        QTest::addColumn<QImage>("picture");
        QTest::newRow("tiny print") << drawnPage(receipt, 12);
        QTest::newRow("comfortable print") << drawnPage(receipt, 30);
        QTest::newRow("huge print") << drawnPage(receipt, 90);
        QTest::newRow("small on a wide page") << drawnPage(receipt, 24, 2400);
        QTest::newRow("turned to the left") << onTable(drawnPage(receipt, 30), -3);
        QTest::newRow("turned to the right") << onTable(drawnPage(receipt, 30), 4);
        QTest::newRow("on its left side") << rotated(drawnPage(receipt, 30), -90);
        QTest::newRow("on its right side") << rotated(drawnPage(receipt, 30), 90);
        QTest::newRow("upside down") << rotated(drawnPage(receipt, 30), 180);
        QTest::newRow("upside down on a table") << rotated(onTable(drawnPage(receipt, 30), 3), 180);
        QTest::newRow("taken from below") << takenFromBelow(drawnPage(receipt, 30));
        QTest::newRow("grainy") << withGrain(drawnPage(receipt, 30), 40);
        QTest::newRow("faint") << faint(drawnPage(receipt, 30));
    }
    void readsPictures() {
        QFETCH(QImage, picture);
        const QList<Reading> readings = readingsOf(picture);
        QCOMPARE(readings.size(), 2);
        QVERIFY(hasLine(readings, u"Corner Shop"_s));
        QVERIFY(hasLine(readings, u"Total 10.00"_s));
    }

    void knowsWhereWordsStandOnThePage_data() {
        QTest::addColumn<std::function<QImage(const QImage &)>>("view");
        using View = std::function<QImage(const QImage &)>;
        QTest::newRow("as it is") << View([](const QImage &page) { return page; });
        QTest::newRow("turned to the left") << View([](const QImage &page) { return onTable(page, -3); });
        QTest::newRow("turned to the right") << View([](const QImage &page) { return onTable(page, 4); });
        QTest::newRow("on its left side") << View([](const QImage &page) { return rotated(page, -90); });
        QTest::newRow("on its right side") << View([](const QImage &page) { return rotated(page, 90); });
        QTest::newRow("upside down") << View([](const QImage &page) { return rotated(page, 180); });
        QTest::newRow("taken from below") << View([](const QImage &page) { return takenFromBelow(page); });
    }
    void knowsWhereWordsStandOnThePage() {
        QFETCH(std::function<QImage(const QImage &)>, view);
        const QImage page = drawnPage(receipt, 30);
        QImage marked = page;
        // The last row's first word: its letters are 30 pixels high, its baseline 420 from the top.
        QPainter(&marked).fillRect(QRect(30, 398, 72, 22), QColor(0, 255, 0));
        const QPointF expected = greenPlace(view(marked));
        for (const Reading &reading : readingsOf(view(page))) {
            const QRectF place = placeOf(reading, u"Total"_s);
            QVERIFY2(
                place.contains(expected),
                qPrintable(
                    u"%1 %2 %3 %4"_s.arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height())));
            QVERIFY(place.width() * place.height() < 0.03);
        }
    }

    void readsANameInLargePrint() {
        QImage page = drawnPage(receipt, 24, 900);
        QPainter painter(&page);
        painter.fillRect(0, 0, page.width(), 110, Qt::white);
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(64);
        painter.setFont(font);
        painter.drawText(60, 80, u"HARBOUR TEA"_s);
        painter.end();
        QVERIFY(hasLine(readingsOf(page), u"HARBOUR TEA"_s));
    }

    void looksAgainUntilItIsEnough() {
        QCOMPARE(readingsOf(drawnPage(receipt, 24), anyIsEnough).size(), 2);
        QCOMPARE(readingsOf(drawnPage(receipt, 24), noneIsEnough).size(),
                 static_cast<qsizetype>(recognitionPasses.size()));
    }

    void keepsThePagesInOrder() {
        const PdfPage text{.lines = {{.text = u"First page"_s, .box = QRectF(0, 0, 50, 9)}}, .picture = {}};
        const PdfPage picture{.lines = {}, .picture = drawnPage({u"Second page"_s, u"Total 10.00"_s}, 30)};
        const QList<Reading> readings = readingsOf({text, picture}, anyIsEnough);
        QVERIFY(!readings.isEmpty());
        for (const Reading &reading : readings) {
            QVERIFY(reading.size() >= 2);
            QCOMPARE(reading.first().text, u"First page"_s);
            QCOMPARE(reading.last().page, 1);
        }
    }

    void givesTextOnceAndWithoutRecognition() {
        const auto readings =
            readPages({{.lines = {{.text = u"Total 10.00"_s, .box = QRectF(0, 0, 50, 9)}}, .picture = {}}},
                      noneIsEnough);
        QVERIFY(readings);
        QCOMPARE(readings->size(), 1);
        QCOMPARE(readings->first().first().text, u"Total 10.00"_s);
    }

    void bearsPicturesWithoutText_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("level");
        for (const QSize size : {QSize(1, 1), QSize(3, 500), QSize(500, 3), QSize(40, 40), QSize(600, 800)}) {
            for (const int level : {0, 128, 255})
                QTest::addRow("%dx%d, level %d", size.width(), size.height(), level) << size << level;
        }
    }
    void bearsPicturesWithoutText() {
        QFETCH(QSize, size);
        QFETCH(int, level);
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(QColor(level, level, level));
        const QList<Reading> readings = readingsOf(picture, noneIsEnough);
        QCOMPARE(readings.size(), static_cast<qsizetype>(recognitionPasses.size()));
        for (const Reading &reading : readings) {
            for (const TextLine &line : reading)
                QVERIFY2(line.text.size() <= 2, qPrintable(line.text));
        }
    }

    void servesSeveralThreadsAtOnce() {
        const QImage page = drawnPage(receipt, 24);
        std::atomic<int> right = 0;
        {
            std::vector<std::jthread> threads;
            for (int count = 0; count < 4; ++count)
                threads.emplace_back([&] { right += hasLine(readingsOf(page), u"Total 10.00"_s) ? 1 : 0; });
        }
        QCOMPARE(right, 4);
    }
};

int picture_reader_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, PictureReaderTest>(argc, argv);
}
#include "picture_reader_test.moc"
