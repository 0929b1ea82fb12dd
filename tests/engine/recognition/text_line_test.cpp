#include "engine/recognition/text_line.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

QStringList textsOf(const QList<TextLine> &lines) {
    QStringList texts;
    for (const TextLine &line : lines)
        texts.append(line.text);
    return texts;
}

} // namespace

class TextLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void joinsLabelAndAmount() {
        const QList<TextLine> rows = joinedRows({
            {.text = u"Soup"_s, .box = QRectF(0, 0, 50, 20)},
            {.text = u"Total"_s, .box = QRectF(0, 40, 50, 20)},
            {.text = u"6.50"_s, .box = QRectF(200, 3, 50, 20)},
            {.text = u"23.50"_s, .box = QRectF(200, 43, 50, 20)},
        });
        QCOMPARE(textsOf(rows), (QStringList{u"Soup  6.50"_s, u"Total  23.50"_s}));
        QCOMPARE(rows[0].box, QRectF(0, 0, 250, 23));
    }

    void keepsReadingOrder() {
        const QList<TextLine> rows = joinedRows({
            {.text = u"below"_s, .box = QRectF(0, 100, 50, 20)},
            {.text = u"above"_s, .box = QRectF(0, 0, 50, 20)},
            {.text = u"next page"_s, .box = QRectF(0, 50, 50, 20), .page = 1},
        });
        QCOMPARE(textsOf(rows), (QStringList{u"above"_s, u"below"_s, u"next page"_s}));
    }

    void tellsLettersWordsAndColumnsByTheirGaps() {
        const QList<TextLine> rows = joinedRows({
            {.text = u"T"_s, .box = QRectF(0, 0, 10, 20)},
            {.text = u"ea"_s, .box = QRectF(11, 0, 20, 20)},
            {.text = u"pot"_s, .box = QRectF(37, 0, 30, 20)},
            {.text = u"9.00"_s, .box = QRectF(100, 0, 30, 20)},
        });
        QCOMPARE(textsOf(rows), (QStringList{u"Tea pot  9.00"_s}));
    }

    void ordersPiecesFromTheLeft() {
        const QList<TextLine> rows = joinedRows({
            {.text = u"right"_s, .box = QRectF(200, 0, 50, 20)},
            {.text = u"left"_s, .box = QRectF(0, 1, 50, 20)},
        });
        QCOMPARE(textsOf(rows), (QStringList{u"left  right"_s}));
    }

    void keepsRowsApartThatOnlyTouch() {
        const QList<TextLine> rows = joinedRows({
            {.text = u"first"_s, .box = QRectF(0, 0, 50, 20)},
            {.text = u"second"_s, .box = QRectF(200, 15, 50, 20)},
        });
        QCOMPARE(rows.size(), 2);
    }

    void keepsTheLowestConfidence() {
        const QList<TextLine> rows = joinedRows({
            {.text = u"a"_s, .box = QRectF(0, 0, 50, 20), .confidence = 0.9},
            {.text = u"b"_s, .box = QRectF(100, 0, 50, 20), .confidence = 0.4},
        });
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows[0].confidence, 0.4);
    }

    void takesNothing() { QVERIFY(joinedRows({}).isEmpty()); }
};

int text_line_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<TextLineTest>(argc, argv);
}
#include "text_line_test.moc"
