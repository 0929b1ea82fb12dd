#include "support/test_program.h"
#include "text/typed_number.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class TypedNumberTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void formsAreRead_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("readings");
        const auto add = [](const QString &typed, const QStringList &readings) {
            QTest::newRow(qPrintable(typed)) << typed << readings;
        };
        add(u"12"_s, {u"12"_s});
        add(u"12,50"_s, {u"12.50"_s});
        add(u"12.5"_s, {u"12.5"_s});
        add(u"12,"_s, {u"12."_s}); // still being typed
        add(u"1.234,56"_s, {u"1234.56"_s});
        add(u"1,234.56"_s, {u"1234.56"_s});
        add(u"1'234.50"_s, {u"1234.50"_s});
        add(u"1\u00A0234,50"_s, {u"1234.50"_s});
        add(u"1,234"_s, {u"1234"_s, u"1.234"_s});
        add(u"1.234.567"_s, {u"1234567"_s});
        add(u"0,125"_s, {u"0.125"_s});
        add(u"1234,567"_s, {u"1234.567"_s});
        add(u"-5"_s, {u"-5"_s});
        add(u"\u22125,20"_s, {u"-5.20"_s});
        add(u"€12,50"_s, {u"12.50"_s});
        add(u"$7"_s, {u"7"_s});
        for (const QString &none :
             {u""_s, u"-"_s, u"€"_s, u"12a"_s, u"2024-05-01"_s, u"12:30"_s, u","_s, u".5"_s}) {
            add(none, {});
        }
    }
    void formsAreRead() {
        QFETCH(QString, typed);
        QFETCH(QStringList, readings);
        QCOMPARE(readingsOfNumber(typed), readings);
    }
};

int typed_number_test(int argc, char **argv) {
    return runTest<QCoreApplication, TypedNumberTest>(argc, argv);
}
#include "typed_number_test.moc"
