#include "pipeline/typed_values.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Kind = FieldProblem::Kind;

namespace {

const QLocale german(QLocale::German, QLocale::Germany);
const QLocale american(QLocale::English, QLocale::UnitedStates);
const QLocale hungarian(QLocale::Hungarian, QLocale::Hungary);

} // namespace

class TypedDateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void understands_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("date");
        QTest::newRow("ISO") << german << u"2024-05-31"_s << u"2024-05-31"_s;
        QTest::newRow("ISO without zeros") << german << u"2024-5-3"_s << u"2024-05-03"_s;
        QTest::newRow("ISO with slashes") << american << u"2024/05/31"_s << u"2024-05-31"_s;
        QTest::newRow("German short form") << german << u"31.05.24"_s << u"2024-05-31"_s;
        QTest::newRow("German with blanks") << german << u" 1. 6. 2024 "_s << u"2024-06-01"_s;
        QTest::newRow("day before month") << german << u"01/02/2024"_s << u"2024-02-01"_s;
        QTest::newRow("month before day") << american << u"1/2/24"_s << u"2024-01-02"_s;
        QTest::newRow("Hungarian") << hungarian << u"2024. 05. 31."_s << u"2024-05-31"_s;
        QTest::newRow("Hungarian, two digits") << hungarian << u"24. 05. 31."_s << u"2024-05-31"_s;
        QTest::newRow("last century") << german << u"31.12.98"_s << u"1998-12-31"_s;
        QTest::newRow("leap day") << german << u"29.2.2024"_s << u"2024-02-29"_s;
        QTest::newRow("month as a word") << QLocale::c() << u"31 May 2024"_s << u"2024-05-31"_s;
        QTest::newRow("Arabic digits") << german << u"٢٠٢٤-٠٥-٣١"_s << u"2024-05-31"_s;
    }
    void understands() {
        QFETCH(QLocale, locale);
        QFETCH(QString, typed);
        QFETCH(QString, date);
        const auto found = TypedValues::date(typed, locale);
        QVERIFY(found);
        QCOMPARE(found->value(), date);
    }

    void nothingIsAnAbsentDate() {
        const auto found = TypedValues::date(u"  "_s, german);
        QVERIFY(found);
        QVERIFY(!*found);
    }

    void refuses_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<Kind>("kind");
        QTest::newRow("no 31 February") << u"31.2.2024"_s << Kind::unknownDay;
        QTest::newRow("no leap year") << u"2023-02-29"_s << Kind::unknownDay;
        QTest::newRow("day zero") << u"2024-02-00"_s << Kind::unknownDay;
        QTest::newRow("month 13") << u"2024-13-01"_s << Kind::unknownMonth;
        QTest::newRow("month zero") << u"2024-00-01"_s << Kind::unclearDate;
        QTest::newRow("year zero") << u"0000-01-01"_s << Kind::unclearDate;
        QTest::newRow("words") << u"yesterday"_s << Kind::unclearDate;
        QTest::newRow("two numbers") << u"31.5."_s << Kind::unclearDate;
        QTest::newRow("four numbers") << u"1.2.3.4"_s << Kind::unclearDate;
        QTest::newRow("three digits") << u"1.2.324"_s << Kind::unclearDate;
        QTest::newRow("one number") << u"20240531"_s << Kind::unclearDate;
        QTest::newRow("long numbers") << u"99999999999-1-1"_s << Kind::unclearDate;
    }
    void refuses() {
        QFETCH(QString, typed);
        QFETCH(Kind, kind);
        const auto found = TypedValues::date(typed, german);
        QVERIFY(!found);
        QCOMPARE(found.error().kind, kind);
    }

    void saysWhatIsWrong() {
        QCOMPARE(TypedValues::date(u"31.2.2024"_s, german).error().description(),
                 u"There is no 31 February"_s);
        QCOMPARE(TypedValues::date(u"29.2.2023"_s, german).error().description(),
                 u"There is no 29 February 2023"_s);
        QCOMPARE(TypedValues::date(u"1.13.2023"_s, german).error().description(), u"There is no month 13"_s);
        QCOMPARE(TypedValues::date(u"soon"_s, german).error().description(),
                 u"Write the date like 2024-05-31 or 31.05.24"_s);
    }
};

int typed_date_test(int argc, char **argv) {
    return runTest<QCoreApplication, TypedDateTest>(argc, argv);
}
#include "typed_date_test.moc"
