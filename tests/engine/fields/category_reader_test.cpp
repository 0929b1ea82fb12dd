#include "engine/engine_lines.h"
#include "engine/fields/category_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class CategoryReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void judgesByWords_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("category");
        QTest::newRow("hotel") << QStringList{u"Hotel Lindenhof"_s, u"2 nights"_s} << u"hotel"_s;
        QTest::newRow("fuel") << QStringList{u"Northline"_s, u"Unleaded 41.2 litres"_s} << u"fuel"_s;
        QTest::newRow("coffee") << QStringList{u"Two Sparrows"_s, u"Flat white"_s, u"Croissant"_s}
                                << u"coffee"_s;
        QTest::newRow("transport") << QStringList{u"Hibari Taxi"_s, u"Fare"_s} << u"transport"_s;
        QTest::newRow("groceries") << QStringList{u"Sonnenfeld"_s, u"Milch"_s, u"Brot"_s, u"Eier"_s}
                                   << u"groceries"_s;
        QTest::newRow("shopping") << QStringList{u"Brightdesk"_s, u"Keyboard"_s, u"Monitor arm"_s}
                                  << u"shopping"_s;
        QTest::newRow("entertainment") << QStringList{u"Cinema Aurora"_s, u"Popcorn"_s} << u"entertainment"_s;
        QTest::newRow("breakfast by name")
            << QStringList{u"Auberge"_s, u"2 Petit déjeuner"_s} << u"breakfast"_s;
        QTest::newRow("unknown") << QStringList{u"Qwrtz"_s, u"Zxcv 3.00"_s} << u"misc"_s;
        QTest::newRow("nothing") << QStringList{} << u"misc"_s;
    }
    void judgesByWords() {
        QFETCH(QStringList, lines);
        QFETCH(QString, category);
        QCOMPARE(readCategory(linesOf(lines), std::nullopt, std::nullopt, testLanguages), category);
    }

    void tellsMealsByTheTime_data() {
        QTest::addColumn<QTime>("time");
        QTest::addColumn<QString>("category");
        QTest::newRow("early") << QTime(8, 0) << u"breakfast"_s;
        QTest::newRow("noon") << QTime(12, 30) << u"lunch"_s;
        QTest::newRow("evening") << QTime(19, 42) << u"dinner"_s;
        QTest::newRow("late") << QTime(0, 30) << u"dinner"_s;
    }
    void tellsMealsByTheTime() {
        QFETCH(QTime, time);
        QFETCH(QString, category);
        QCOMPARE(readCategory(linesOf({u"Trattoria Blu"_s, u"Pasta 12.00"_s}), std::nullopt, time, {}),
                 category);
    }

    void takesAMealWithoutTimeForLunch() {
        QCOMPARE(readCategory(linesOf({u"Trattoria Blu"_s, u"Pasta 12.00"_s}), std::nullopt, std::nullopt,
                              {u"it"_s}),
                 u"lunch"_s);
    }

    void trustsTheSellersNameMore() {
        const QList<TextLine> lines = linesOf({u"Harbour Hotel"_s, u"Soup"_s, u"Salad"_s});
        QCOMPARE(readCategory(lines, u"Harbour Hotel"_s, QTime(13, 0), {}), u"hotel"_s);
        QCOMPARE(readCategory(lines, std::nullopt, QTime(13, 0), {}), u"lunch"_s);
    }

    void judgesByWordsOfTheLanguageOnly() {
        const QList<TextLine> lines = linesOf({u"Mleko 3,49"_s, u"Chleb 4,99"_s, u"Masło 7,99"_s});
        QCOMPARE(readCategory(lines, std::nullopt, std::nullopt, {u"pl"_s}), u"groceries"_s);
        QCOMPARE(readCategory(lines, std::nullopt, std::nullopt, {}), u"misc"_s);
    }
};

int category_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<CategoryReaderTest>(argc, argv);
}
#include "category_reader_test.moc"
