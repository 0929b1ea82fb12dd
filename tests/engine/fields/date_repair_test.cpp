#include "engine/fields/date_repair.h"
#include "support/test_program.h"

#include <algorithm>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class DateRepairTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsGarbledDates_data() {
        QTest::addColumn<QString>("line");
        for (const char *line :
             {"26/10/2O19", "26/1O/2019", "26/l0/2019", "261102019 3 15", "26/1012019", "2610/2019",
              "26/102019", "26102019 08:45:10", "26-10.2019", "26,10,2019", "26/10/2619", "26/10/2919",
              "26-10 19 12:30", "26.10,19 12:30", "26 / 10 / 2019", "Date:26'10'2019"})
            QTest::newRow(line) << QString::fromUtf8(line);
    }
    void readsGarbledDates() {
        QFETCH(QString, line);
        const QList<PrintedDate> dates = garbledDates(line, {});
        QVERIFY(std::ranges::any_of(
            dates, [](const PrintedDate &printed) { return printed.date == QDate(2019, 10, 26); }));
    }

    void readsTheMonthFirstWhereItStandsSo() {
        const QList<PrintedDate> dates = garbledDates(u"10/2612019"_s, {.order = DateOrder::monthFirst});
        QVERIFY(!dates.isEmpty());
        QCOMPARE(dates.first().date, QDate(2019, 10, 26));
    }

    void findsNoneInOtherNumbers_data() {
        QTest::addColumn<QString>("line");
        for (const char *line : {"Tel 03-5550 0142", "GST No 001234567890", "12 Main Street",
                                 "Total 1,234.56", "45992019", "Ref 99/99/2018", "3 for 2024", ""})
            QTest::newRow(line) << QString::fromUtf8(line);
    }
    void findsNoneInOtherNumbers() {
        QFETCH(QString, line);
        QVERIFY(garbledDates(line, {}).isEmpty());
    }
};

int date_repair_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<DateRepairTest>(argc, argv);
}
#include "date_repair_test.moc"
