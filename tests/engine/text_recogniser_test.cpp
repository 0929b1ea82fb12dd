#include "engine/text_recogniser.h"

#include <QPainter>
#include <QTest>

using namespace fennick;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QImage printed(const QStringList &rows, int pixelSize) {
    QImage picture(22 * pixelSize, static_cast<int>(rows.size() + 2) * 2 * pixelSize, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(pixelSize);
    painter.setFont(font);
    for (int row = 0; row < rows.size(); ++row)
        painter.drawText(pixelSize, (row + 2) * 2 * pixelSize, rows[row]);
    return picture;
}

} // namespace

class TextRecogniserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsPrintedLines_data() {
        QTest::addColumn<int>("pixelSize");
        QTest::newRow("tiny") << 12;
        QTest::newRow("small") << 18;
        QTest::newRow("large") << 60;
    }
    void readsPrintedLines() {
        QFETCH(int, pixelSize);
        TextRecogniser recogniser;
        QVERIFY(recogniser.isReady());
        const QList<TextLine> lines = recogniser.recognise(
            printed({u"Corner Shop"_s, u"Total 23.50"_s}, pixelSize), 3, QDeadlineTimer(60s));
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].text, u"Corner Shop"_s);
        QCOMPARE(lines[1].text, u"Total 23.50"_s);
        QVERIFY(lines[0].box.bottom() < lines[1].box.top());
        QVERIFY(lines[0].confidence > 0.6 && lines[0].confidence <= 1);
        QCOMPARE(lines[0].page, 3);
    }

    void readsOnePageAfterTheOther() {
        TextRecogniser recogniser;
        QCOMPARE(recogniser.recognise(printed({u"First page"_s}, 30), 0, QDeadlineTimer(60s)).value(0).text,
                 u"First page"_s);
        QCOMPARE(recogniser.recognise(printed({u"Second page"_s}, 30), 1, QDeadlineTimer(60s)).value(0).text,
                 u"Second page"_s);
    }

    void findsNothingOnEmptyPaper() {
        TextRecogniser recogniser;
        QImage white(600, 800, QImage::Format_RGB32);
        white.fill(Qt::white);
        QVERIFY(recogniser.recognise(white, 0, QDeadlineTimer(60s)).isEmpty());
        QVERIFY(recogniser.recognise(QImage(), 0, QDeadlineTimer(60s)).isEmpty());
        QImage dot(1, 1, QImage::Format_RGB32);
        dot.fill(Qt::black);
        QVERIFY(recogniser.recognise(dot, 0, QDeadlineTimer(60s)).isEmpty());
    }

    void stopsWhenItsTimeIsOver() {
        TextRecogniser recogniser;
        const QStringList rows(60, u"The quick brown fox 12.34"_s);
        const QList<TextLine> lines = recogniser.recognise(printed(rows, 40), 0, QDeadlineTimer(0));
        QVERIFY(lines.isEmpty());
    }
};

QTEST_MAIN(TextRecogniserTest)
#include "text_recogniser_test.moc"
