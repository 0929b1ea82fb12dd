#include "engine/engine_lines.h"
#include "engine/fields/date_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

const QDate today(2025, 6, 15);

std::optional<QDate> dateIn(const QStringList &lines, DateOrder order = DateOrder::dayFirst) {
    const std::optional<FoundDate> found =
        readDate({linesOf(lines)}, {.order = order, .languages = testLanguages}, today);
    return found ? std::optional(found->date) : std::nullopt;
}

} // namespace

class DateReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsMonthsOfManyLanguages_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("language");
        QTest::addColumn<int>("month");
        QTest::newRow("Polish") << u"5 października 2023"_s << u"pl"_s << 10;
        QTest::newRow("Polish, short") << u"05-wrz-2023"_s << u"pl"_s << 9;
        QTest::newRow("Czech") << u"5. září 2023"_s << u"cs"_s << 9;
        QTest::newRow("Czech November") << u"5. listopadu 2023"_s << u"cs"_s << 11;
        QTest::newRow("Croatian October") << u"5. listopada 2023"_s << u"hr"_s << 10;
        QTest::newRow("Finnish") << u"5. toukokuuta 2023"_s << u"fi"_s << 5;
        QTest::newRow("Turkish") << u"5 Ağustos 2023"_s << u"tr"_s << 8;
        QTest::newRow("Turkish without accents") << u"05 Agu 2023"_s << u"tr"_s << 8;
        QTest::newRow("Indonesian") << u"5 Agustus 2023"_s << u"id"_s << 8;
        QTest::newRow("Portuguese") << u"5 de fevereiro de 2023"_s << u"pt"_s << 2;
        QTest::newRow("Hungarian") << u"2023. május 5."_s << u"hu"_s << 5;
        QTest::newRow("Swahili") << u"5 Agosti 2023"_s << u"sw"_s << 8;
    }
    void readsMonthsOfManyLanguages() {
        QFETCH(QString, text);
        QFETCH(QString, language);
        QFETCH(int, month);
        const auto found = readDate({linesOf({text})}, {.languages = {language}}, today);
        QVERIFY(found);
        QCOMPARE(found->date, QDate(2023, month, 5));
    }

    void readsMonthsOnlyOfItsLanguages() {
        QVERIFY(!readDate({linesOf({u"5. toukokuuta 2023"_s})}, {}, today));
    }

    void readsBuddhistYears() {
        QCOMPARE(dateIn({u"05/08/2566"_s}), std::optional(QDate(2023, 8, 5)));
        const DateStyle thai{.hasBuddhistYears = true};
        QCOMPARE(readDate({linesOf({u"05/08/66 14:32"_s})}, thai, today)->date, QDate(2023, 8, 5));
        QCOMPARE(readDate({linesOf({u"05/08/23 14:32"_s})}, thai, today)->date, QDate(2023, 8, 5));
    }

    void readsYearsInFront() {
        QCOMPARE(dateIn({u"2023.08.05. 14:32"_s}), std::optional(QDate(2023, 8, 5)));
        const DateStyle korean{.order = DateOrder::yearFirst};
        QCOMPARE(readDate({linesOf({u"23-08-05"_s})}, korean, today)->date, QDate(2023, 8, 5));
    }

    void weekdayProvesTheOrder() {
        // 3 April 2023 was a Monday, 4 March 2023 a Saturday.
        QCOMPARE(printedOrder({linesOf({u"Mon 03/04/2023"_s})}, {.order = DateOrder::monthFirst}),
                 DateOrder::dayFirst);
        QCOMPARE(printedOrder({linesOf({u"Sat 03/04/2023"_s})}, {}), DateOrder::monthFirst);
        QCOMPARE(printedOrder({linesOf({u"lunes 03/04/2023"_s})},
                              {.order = DateOrder::monthFirst, .languages = {u"es"_s}}),
                 DateOrder::dayFirst);
    }

    void takesTheOtherOrderForADayToCome() {
        QCOMPARE(dateIn({today.addDays(-8).toString(u"MM/dd/yyyy"_s)}, DateOrder::dayFirst),
                 std::optional(today.addDays(-8)));
    }

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
        QTest::newRow("East Asian") << u"2024年5月1日"_s;
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
                << u"9. %1 2024"_s.arg(names[index]) << static_cast<int>(index) + 1;
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
        QCOMPARE(dateIn({u"03/04/2024"_s}, DateOrder::dayFirst), std::optional(QDate(2024, 4, 3)));
        QCOMPARE(dateIn({u"03/04/2024"_s}, DateOrder::monthFirst), std::optional(QDate(2024, 3, 4)));
    }

    void followsTheNumbersWhereTheyTell() {
        QCOMPARE(dateIn({u"13/05/2024"_s}, DateOrder::monthFirst), std::optional(QDate(2024, 5, 13)));
        QCOMPARE(dateIn({u"05/13/2024"_s}, DateOrder::dayFirst), std::optional(QDate(2024, 5, 13)));
        QCOMPARE(dateIn({u"03.04.2024"_s}, DateOrder::monthFirst), std::optional(QDate(2024, 4, 3)));
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
                << u"9 %1 2024"_s.arg(french[index]) << static_cast<int>(index) + 1;
            QTest::newRow(qPrintable(spanish[index]))
                << u"9 de %1 de 2024"_s.arg(spanish[index]) << static_cast<int>(index) + 1;
        }
    }
    void knowsFrenchAndSpanishMonths() { knowsGermanMonths(); }

    void letsReadingsVote() {
        const Reading right = linesOf({u"Date 04/05/2024 16:07"_s});
        const Reading wrong = linesOf({u"Date 04/05/2021 16:07"_s});
        QCOMPARE(readDate({right, wrong, right}, {}, today)->date, QDate(2024, 5, 4));
    }

    void takesAGarbledDateOnlyWhenThereIsNoOther() {
        QCOMPARE(dateIn({u"No 5  281032024 6 12"_s}), std::optional(QDate(2024, 3, 28)));
        QCOMPARE(dateIn({u"No 5  281032024 6 12"_s, u"18/02/2024"_s}), std::optional(QDate(2024, 2, 18)));
    }

    void isCertainWhenReadingsAgree() {
        const Reading right = linesOf({u"Date 04/05/2024 16:07"_s});
        const Reading wrong = linesOf({u"Date 04/05/2021 16:07"_s});
        QVERIFY(readDate({right, right}, {}, today)->isCertain);
        QVERIFY(!readDate({right, wrong}, {}, today)->isCertain);
    }

    void learnsTheOrderFromOtherDates() {
        QCOMPARE(
            printedOrder({linesOf({u"25/03/2024"_s, u"04/05/2024"_s})}, {.order = DateOrder::monthFirst}),
            DateOrder::dayFirst);
        QCOMPARE(printedOrder({linesOf({u"03/25/2024"_s, u"04/05/2024"_s})}, {.order = DateOrder::dayFirst}),
                 DateOrder::monthFirst);
        QCOMPARE(printedOrder({linesOf({u"04/05/2024"_s})}, {.order = DateOrder::monthFirst}),
                 DateOrder::monthFirst);
        QCOMPARE(printedOrder({}, {.order = DateOrder::dayFirst}), DateOrder::dayFirst);
    }

    void tellsTheLine() {
        const std::optional<FoundDate> found =
            readDate({linesOf({u"Shop"_s, u"Street"_s, u"2024-05-01"_s})}, {}, today);
        QVERIFY(found.has_value());
        QCOMPARE(found->lines, (QList<std::optional<qsizetype>>{2}));
    }
};

int date_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<DateReaderTest>(argc, argv);
}
#include "date_reader_test.moc"
