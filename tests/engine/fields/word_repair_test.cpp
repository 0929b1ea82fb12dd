#include "engine/fields/word_repair.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class WordRepairTest : public QObject {
    Q_OBJECT

    const QSet<QString> vocabulary_ = {u"total"_s, u"change"_s,     u"charge"_s,
                                       u"cash"_s,  u"adjustment"_s, u"gst"_s};

private Q_SLOTS:
    void repairs_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("repaired");
        QTest::newRow("known") << u" total cash "_s << u" total cash "_s;
        QTest::newRow("digits") << u" t0ta1 "_s << u" total "_s;
        QTest::newRow("one letter") << u" tutal "_s << u" total "_s;
        QTest::newRow("letter lost") << u" otal "_s << u" otal "_s;
        QTest::newRow("letter more") << u" totall "_s << u" total "_s;
        QTest::newRow("two in a long word") << u" adjusimant "_s << u" adjustment "_s;
        QTest::newRow("two in a short word") << u" tutel "_s << u" tutel "_s;
        QTest::newRow("short words stay") << u" cush gsi "_s << u" cush gsi "_s;
        QTest::newRow("numbers stay") << u" 12345 70741 "_s << u" 12345 70741 "_s;
        QTest::newRow("between two") << u" chabge "_s << u" chabge "_s;
        QTest::newRow("empty") << u" "_s << u" "_s;
    }
    void repairs() {
        QFETCH(QString, words);
        QFETCH(QString, repaired);
        QCOMPARE(repairedWords(words, vocabulary_), repaired);
    }
};

int word_repair_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<WordRepairTest>(argc, argv);
}
#include "word_repair_test.moc"
