#include "engine/drawn_page.h"
#include "engine/recognition/text_recogniser.h"
#include "support/test_program.h"

#include <QGuiApplication>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

GreyPicture greyPrinted(const QStringList &rows, int pixelSize) {
    return greyPicture(drawnPage(rows, pixelSize));
}

} // namespace

class TextRecogniserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsPrintedLines_data() {
        QTest::addColumn<int>("pixelSize");
        QTest::newRow("small") << 24;
        QTest::newRow("medium") << 32;
        QTest::newRow("large") << 60;
    }
    void readsPrintedLines() {
        QFETCH(int, pixelSize);
        TextRecogniser recogniser;
        QVERIFY(recogniser.isReady());
        const QList<TextLine> lines = recogniser.recognise(
            greyPrinted({u"Corner Shop"_s, u"Total 23.50"_s}, pixelSize), 3, 60s, QDeadlineTimer(60s));
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].text, u"Corner Shop"_s);
        QCOMPARE(lines[1].text, u"Total 23.50"_s);
        QVERIFY(lines[0].box.bottom() < lines[1].box.top());
        QVERIFY(lines[0].confidence > 0.6 && lines[0].confidence <= 1);
        QCOMPARE(lines[0].page, 3);
    }

    void readsOnePageAfterTheOther() {
        TextRecogniser recogniser;
        QCOMPARE(recogniser.recognise(greyPrinted({u"First page"_s}, 30), 0, 60s, QDeadlineTimer(60s))
                     .value(0)
                     .text,
                 u"First page"_s);
        QCOMPARE(recogniser.recognise(greyPrinted({u"Second page"_s}, 30), 1, 60s, QDeadlineTimer(60s))
                     .value(0)
                     .text,
                 u"Second page"_s);
    }

    void findsNothingOnEmptyPaper() {
        TextRecogniser recogniser;
        QImage white(600, 800, QImage::Format_RGB32);
        white.fill(Qt::white);
        QVERIFY(recogniser.recognise(greyPicture(white), 0, 60s, QDeadlineTimer(60s)).isEmpty());
        QVERIFY(recogniser.recognise(greyPicture(QImage()), 0, 60s, QDeadlineTimer(60s)).isEmpty());
        QImage dot(1, 1, QImage::Format_RGB32);
        dot.fill(Qt::black);
        QVERIFY(recogniser.recognise(greyPicture(dot), 0, 60s, QDeadlineTimer(60s)).isEmpty());
    }

    void stopsWhenItsTimeIsOver() {
        TextRecogniser recogniser;
        const QStringList rows(60, u"The quick brown fox 12.34"_s);
        const QList<TextLine> lines = recogniser.recognise(greyPrinted(rows, 40), 0, 60s, QDeadlineTimer(0));
        QVERIFY(lines.isEmpty());
    }
};

int text_recogniser_test(int argc, char **argv) {
    return fennick::test::runTest<QGuiApplication, TextRecogniserTest>(argc, argv);
}
#include "text_recogniser_test.moc"
