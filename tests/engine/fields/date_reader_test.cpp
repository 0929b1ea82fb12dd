#include "engine/engine_lines.h"
#include "engine/fields/date_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

const QDate today(2025, 6, 15);

std::optional<QDate> dateIn(const QStringList &lines, DayMonthOrder order = DayMonthOrder::DayFirst) {
    const std::optional<FoundDate> found = readDate({linesOf(lines)}, order, today);
    return found ? std::optional(found->date) : std::nullopt;
}

} // namespace

class DateReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsEveryStyle_data() {
        QTest::addColumn<QString>("text");
        for (const char *text : {"2024-05-01",
                                 "2024/05/01",
                                 "2024.05.01",
                                 "01.05.2024",
                                 "1.5.24",
                                 "01/05/2024",
                                 "01-05-2024",
                                 "1 May 2024",
                                 "1st May 2024",
                                 "May 1, 2024",
                                 "May 1 2024",
                                 "MAY 01, 2024",
                                 "01-MAY-2024",
                                 "01 May '24",
                                 "1. Mai 2024",
                                 "01. MAI 2024",
                                 "1 mai 2024",
                                 "1 de mayo de 2024",
                                 "Datum: 01.05.2024 17:18",
                                 "01 / 05 / 2024",
                                 "Date:01/05/2024"})
            QTest::newRow(text) << QString::fromUtf8(text);
        QTest::newRow("East Asian") << QStringLiteral("2024年5月1日");
    }
    void readsEveryStyle() {
        QFETCH(QString, text);
        QCOMPARE(dateIn({text}), std::optional(QDate(2024, 5, 1)));
    }

    void knowsGermanMonths_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("month");
        const QStringList names = {u"Januar"_s,    u"Februar"_s, u"März"_s,     u"April"_s,
                                   u"Mai"_s,       u"Juni"_s,    u"Juli"_s,     u"August"_s,
                                   u"September"_s, u"Oktober"_s, u"November"_s, u"Dezember"_s};
        for (qsizetype index = 0; index < names.size(); ++index) {
            QTest::newRow(qPrintable(names[index]))
                << QStringLiteral("9. %1 2024").arg(names[index]) << static_cast<int>(index) + 1;
        }
    }
    void knowsGermanMonths() {
        QFETCH(QString, text);
        QFETCH(int, month);
        QCOMPARE(dateIn({text}), std::optional(QDate(2024, month, 9)));
    }

    void tellsJuneFromJulyInFrench() {
        QCOMPARE(dateIn({u"3 juin 2024"_s}), std::optional(QDate(2024, 6, 3)));
        QCOMPARE(dateIn({u"3 juillet 2024"_s}), std::optional(QDate(2024, 7, 3)));
    }

    void followsTheOrderWhereItIsOpen() {
        QCOMPARE(dateIn({u"03/04/2024"_s}, DayMonthOrder::DayFirst), std::optional(QDate(2024, 4, 3)));
        QCOMPARE(dateIn({u"03/04/2024"_s}, DayMonthOrder::MonthFirst), std::optional(QDate(2024, 3, 4)));
    }

    void followsTheNumbersWhereTheyTell() {
        QCOMPARE(dateIn({u"13/05/2024"_s}, DayMonthOrder::MonthFirst), std::optional(QDate(2024, 5, 13)));
        QCOMPARE(dateIn({u"05/13/2024"_s}, DayMonthOrder::DayFirst), std::optional(QDate(2024, 5, 13)));
        QCOMPARE(dateIn({u"03.04.2024"_s}, DayMonthOrder::MonthFirst), std::optional(QDate(2024, 4, 3)));
    }

    void rejectsWhatIsNoDay_data() {
        QTest::addColumn<QString>("text");
        for (const char *text :
             {"31.02.2024", "2024-13-45", "99/99/9999", "192.168.1.100", "1.234.567", "Tel 01632 960 114",
              "12 eggs 20", "5 March", "Version 1.2.3.4", "3 for 2024"})
            QTest::newRow(text) << QString::fromUtf8(text);
    }
    void rejectsWhatIsNoDay() {
        QFETCH(QString, text);
        QCOMPARE(dateIn({text}), std::nullopt);
    }

    void rejectsTheFutureBeyondTomorrow() {
        QCOMPARE(dateIn({u"2025-06-16"_s}), std::optional(QDate(2025, 6, 16)));
        QCOMPARE(dateIn({u"2025-06-17"_s}), std::nullopt);
        QCOMPARE(dateIn({u"2031-01-01"_s, u"2024-05-01"_s}), std::optional(QDate(2024, 5, 1)));
    }

    void prefersALabelledDate() {
        QCOMPARE(dateIn({u"Arrival 2024-03-07"_s, u"Departure 2024-03-09"_s, u"Invoice date 2024-03-10"_s}),
                 std::optional(QDate(2024, 3, 10)));
        QCOMPARE(dateIn({u"01.01.2024"_s, u"Rechnungsdatum: 05.01.2024"_s}),
                 std::optional(QDate(2024, 1, 5)));
    }

    void prefersTheDateBesideATime() {
        QCOMPARE(dateIn({u"Licence 2019-04-01"_s, u"2024-05-01 17:18"_s}), std::optional(QDate(2024, 5, 1)));
    }

    void prefersTheTopmostOfEquals() {
        QCOMPARE(dateIn({u"Shop"_s, u"2024-05-01"_s, u"2024-05-09"_s}), std::optional(QDate(2024, 5, 1)));
    }

    void takesADueDateOnlyWhenThereIsNoOther() {
        QCOMPARE(dateIn({u"Payment due 2024-05-31"_s, u"Issued in Portland 2024-05-01"_s}),
                 std::optional(QDate(2024, 5, 1)));
        QCOMPARE(dateIn({u"Payment due 2024-05-31"_s}), std::optional(QDate(2024, 5, 31)));
    }

    void knowsFrenchAndSpanishMonths_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("month");
        const QStringList french = {u"janvier"_s,   u"février"_s, u"mars"_s,     u"avril"_s,
                                    u"mai"_s,       u"juin"_s,    u"juillet"_s,  u"août"_s,
                                    u"septembre"_s, u"octobre"_s, u"novembre"_s, u"décembre"_s};
        const QStringList spanish = {u"enero"_s,      u"febrero"_s, u"marzo"_s,     u"abril"_s,
                                     u"mayo"_s,       u"junio"_s,   u"julio"_s,     u"agosto"_s,
                                     u"septiembre"_s, u"octubre"_s, u"noviembre"_s, u"diciembre"_s};
        for (qsizetype index = 0; index < french.size(); ++index) {
            QTest::newRow(qPrintable(french[index]))
                << QStringLiteral("9 %1 2024").arg(french[index]) << static_cast<int>(index) + 1;
            QTest::newRow(qPrintable(spanish[index]))
                << QStringLiteral("9 de %1 de 2024").arg(spanish[index]) << static_cast<int>(index) + 1;
        }
    }
    void knowsFrenchAndSpanishMonths() { knowsGermanMonths(); }

    void letsReadingsVote() {
        const Reading right = linesOf({u"Date 04/05/2024 16:07"_s});
        const Reading wrong = linesOf({u"Date 04/05/2021 16:07"_s});
        QCOMPARE(readDate({right, wrong, right}, DayMonthOrder::DayFirst, today)->date, QDate(2024, 5, 4));
    }

    void takesAGarbledDateOnlyWhenThereIsNoOther() {
        QCOMPARE(dateIn({u"No 5  281032024 6 12"_s}), std::optional(QDate(2024, 3, 28)));
        QCOMPARE(dateIn({u"No 5  281032024 6 12"_s, u"18/02/2024"_s}), std::optional(QDate(2024, 2, 18)));
    }

    void isCertainWhenReadingsAgree() {
        const Reading right = linesOf({u"Date 04/05/2024 16:07"_s});
        const Reading wrong = linesOf({u"Date 04/05/2021 16:07"_s});
        QVERIFY(readDate({right, right}, DayMonthOrder::DayFirst, today)->isCertain);
        QVERIFY(!readDate({right, wrong}, DayMonthOrder::DayFirst, today)->isCertain);
    }

    void learnsTheOrderFromOtherDates() {
        QCOMPARE(printedOrder({linesOf({u"25/03/2024"_s, u"04/05/2024"_s})}, DayMonthOrder::MonthFirst),
                 DayMonthOrder::DayFirst);
        QCOMPARE(printedOrder({linesOf({u"03/25/2024"_s, u"04/05/2024"_s})}, DayMonthOrder::DayFirst),
                 DayMonthOrder::MonthFirst);
        QCOMPARE(printedOrder({linesOf({u"04/05/2024"_s})}, DayMonthOrder::MonthFirst),
                 DayMonthOrder::MonthFirst);
        QCOMPARE(printedOrder({}, DayMonthOrder::DayFirst), DayMonthOrder::DayFirst);
    }

    void tellsTheLine() {
        const std::optional<FoundDate> found =
            readDate({linesOf({u"Shop"_s, u"Street"_s, u"2024-05-01"_s})}, DayMonthOrder::DayFirst, today);
        QVERIFY(found.has_value());
        QCOMPARE(found->lines, (QList<std::optional<qsizetype>>{2}));
    }
};

int date_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<DateReaderTest>(argc, argv);
}
#include "date_reader_test.moc"
