#include "pipeline/typed_values.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class TypedValuesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void understandsTimes_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("time");
        QTest::newRow("24 hours") << u"14:30"_s << u"14:30"_s;
        QTest::newRow("one digit") << u" 9:05 "_s << u"09:05"_s;
        QTest::newRow("full stop") << u"9.05"_s << u"09:05"_s;
        QTest::newRow("French") << u"14h30"_s << u"14:30"_s;
        QTest::newRow("with seconds") << u"14:30:59"_s << u"14:30"_s;
        QTest::newRow("afternoon") << u"2:30 PM"_s << u"14:30"_s;
        QTest::newRow("midnight") << u"12:00 a.m."_s << u"00:00"_s;
        QTest::newRow("noon") << u"12:00pm"_s << u"12:00"_s;
    }
    void understandsTimes() {
        QFETCH(QString, typed);
        QFETCH(QString, time);
        const auto found = TypedValues::time(typed);
        QVERIFY(found);
        QCOMPARE(found->value(), time);
    }

    void refusesTimes() {
        for (const char *const typed :
             {"24:00", "12:60", "noon", "1430", "14", "14:3", "13:00 pm", "0:30 am"}) {
            const auto found = TypedValues::time(QString::fromLatin1(typed));
            QVERIFY2(!found, typed);
            QCOMPARE(found.error().description(), u"Write the time like 14:30"_s);
        }
        QVERIFY(!TypedValues::time(u" "_s)->has_value());
    }

    void currenciesAreCodes() {
        QCOMPARE(TypedValues::currency(u" eur "_s)->value(), u"EUR"_s);
        QVERIFY(!TypedValues::currency(QString())->has_value());
        QCOMPARE(TypedValues::currency(u"EUF"_s).error().description(), u"There is no currency “EUF”"_s);
        QVERIFY(!TypedValues::currency(u"Euro"_s));
    }

    void linesHaveNoBreaksAndAnEnd() {
        QCOMPARE(TypedValues::line(u"  Lunch\nfor  two \t"_s), u"Lunch for two"_s);
        QCOMPARE(TypedValues::line(QString(1500, u'x')).size(), 1000);
        QCOMPARE(TypedValues::line(QString(QChar(0xD800))), u"\uFFFD"_s);
    }
};

int typed_values_test(int argc, char **argv) {
    return runTest<QCoreApplication, TypedValuesTest>(argc, argv);
}
#include "typed_values_test.moc"
