#include "support/test_program.h"
#include "text/number_text.h"

#include <QCoreApplication>

#include <clocale>
#include <limits>

using namespace fennick;
using namespace Qt::StringLiterals;

class NumberTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writesTwoDecimalsWithoutGrouping() {
        QCOMPARE(twoDecimals(1234567.5), u"1234567.50"_s);
        QCOMPARE(twoDecimals(0), u"0.00"_s);
        QCOMPARE(twoDecimals(-3.456), u"-3.46"_s);
    }

    void roundsTheExactBinaryValueLikeTheCFormat_data() {
        QTest::addColumn<double>("value");
        for (const double value : {0.125, 0.375, 2.675, 1.005, 1e15 + 0.5, 0.005, 1e-9, 1e308}) {
            QTest::addRow("%g", value) << value;
        }
    }
    void roundsTheExactBinaryValueLikeTheCFormat() {
        QFETCH(double, value);
        std::array<char, 400> expected;
        std::snprintf(expected.data(), expected.size(), "%.2f", value);
        QCOMPARE(twoDecimals(value), QString::fromLatin1(expected.data()));
    }

    void holdsTheLongestValue() {
        QCOMPARE(twoDecimals(std::numeric_limits<double>::lowest()).size(), 1 + 309 + 3);
    }
};

int number_text_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, NumberTextTest>(argc, argv);
}
#include "number_text_test.moc"
