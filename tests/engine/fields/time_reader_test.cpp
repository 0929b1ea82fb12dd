#include "engine/engine_lines.h"
#include "engine/fields/time_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class TimeReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsEveryStyle_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QTime>("time");
        QTest::newRow("24 hours") << u"14:32"_s << QTime(14, 32);
        QTest::newRow("seconds") << u"14:32:59"_s << QTime(14, 32);
        QTest::newRow("afternoon") << u"2:32 PM"_s << QTime(14, 32);
        QTest::newRow("small letters") << u"2:32pm"_s << QTime(14, 32);
        QTest::newRow("points") << u"2:32 p.m."_s << QTime(14, 32);
        QTest::newRow("morning") << u"8:15 am"_s << QTime(8, 15);
        QTest::newRow("noon") << u"12:47 PM"_s << QTime(12, 47);
        QTest::newRow("midnight") << u"12:05 AM"_s << QTime(0, 5);
        QTest::newRow("French") << u"9h10"_s << QTime(9, 10);
        QTest::newRow("German") << u"14.32 Uhr"_s << QTime(14, 32);
        QTest::newRow("behind a date") << u"01.05.2024  17:18 Uhr"_s << QTime(17, 18);
        QTest::newRow("Finnish") << u"klo 14.32"_s << QTime(14, 32);
        QTest::newRow("Indonesian") << u"Jam 14.32"_s << QTime(14, 32);
        QTest::newRow("point behind a date") << u"1.5.2024 14.32"_s << QTime(14, 32);
        QTest::newRow("behind an ISO date") << u"2024-11-16 18:05"_s << QTime(18, 5);
    }
    void readsEveryStyle() {
        QFETCH(QString, text);
        QFETCH(QTime, time);
        QCOMPARE(readTime(linesOf({text}), std::nullopt, testLanguages), std::optional(time));
    }

    void findsNoneInOtherNumbers_data() {
        QTest::addColumn<QString>("text");
        for (const char *text :
             {"25:00", "14:72", "14.32", "Total 9.45", "12:345", "Opening hours 9:00", "09:00 - 18:00"})
            QTest::newRow(text) << QString::fromUtf8(text);
    }
    void findsNoneInOtherNumbers() {
        QFETCH(QString, text);
        QCOMPARE(readTime(linesOf({text}), std::nullopt, testLanguages), std::nullopt);
    }

    void prefersTheTimeBesideTheDate() {
        const QList<TextLine> lines = linesOf({u"Time 08:00"_s, u"2024-05-01 17:18"_s, u"18:00"_s});
        QCOMPARE(readTime(lines, 1, testLanguages), std::optional(QTime(17, 18)));
    }

    void prefersALabelledTimeToANearOne() {
        const QList<TextLine> lines =
            linesOf({u"2024-05-01"_s, u"Table 10:30"_s, u"Tea 3.00"_s, u"Time 17:18"_s});
        QCOMPARE(readTime(lines, 0, testLanguages), std::optional(QTime(17, 18)));
    }
};

int time_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<TimeReaderTest>(argc, argv);
}
#include "time_reader_test.moc"
