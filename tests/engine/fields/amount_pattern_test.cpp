#include "engine/fields/amount_pattern.h"
#include "support/test_program.h"

using namespace fennick::engine;
using namespace Qt::StringLiterals;

class AmountPatternTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsEveryPrintedForm_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<qint64>("thousandths");
        QTest::addColumn<QString>("printed");
        const auto row = [](const QString &line, qint64 thousandths, const QString &printed) {
            QTest::newRow(qPrintable(line)) << line << thousandths << printed;
        };
        row(u"Total 1284.17"_s, 1'284'170, u"1284.17"_s);
        row(u"Total 1,284.17 USD"_s, 1'284'170, u"1,284.17"_s);
        row(u"Summe 1.284,17"_s, 1'284'170, u"1.284,17"_s);
        row(u"Total 1 284,17 €"_s, 1'284'170, u"1 284,17"_s);
        row(u"Total 1 284.17"_s, 1'284'170, u"1 284.17"_s);
        row(u"Total CHF 1'284.17"_s, 1'284'170, u"1'284.17"_s);
        row(u"Total 12,34,567.00"_s, 1'234'567'000, u"12,34,567.00"_s);
        row(u"RM12.50"_s, 12'500, u"12.50"_s);
        row(u"12.5"_s, 12'500, u"12.5"_s);
        row(u"KD 12.500"_s, 12'500, u"12.500"_s);
        row(u"KD 1.275"_s, 1'275, u"1.275"_s);
        row(u"12, 50"_s, 12'500, u"12, 50"_s);
        row(u"0.45"_s, 450, u"0.45"_s);
        row(u"5.00"_s, 5'000, u"5.00"_s);
        row(u"5,-"_s, 5'000, u"5,-"_s);
        row(u"29:-"_s, 29'000, u"29:-"_s);
        row(u"¥2,980"_s, 2'980'000, u"2,980"_s);
        row(u"Rp 175.000"_s, 175'000'000, u"175.000"_s);
        row(u"325 kr"_s, 325'000, u"325"_s);
    }
    void findsEveryPrintedForm() {
        QFETCH(QString, line);
        QFETCH(qint64, thousandths);
        QFETCH(QString, printed);
        QCOMPARE(amountPattern(thousandths).match(line).captured(), printed);
    }

    void leavesOutOtherNumbers_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<qint64>("thousandths");
        const auto row = [](const QString &line, qint64 thousandths) {
            QTest::newRow(qPrintable(line)) << line << thousandths;
        };
        row(u"112.50"_s, 12'500);
        row(u"12.505"_s, 12'500);
        row(u"3.12.50"_s, 12'500);
        row(u"12.50.2024"_s, 12'500);
        row(u"5 items"_s, 5'000);
        row(u"A450"_s, 450'000);
        row(u"450%"_s, 450'000);
        row(u"12:30:45"_s, 12'300);
        row(u"0800-450"_s, 450'000);
        row(u"12 84.17"_s, 1'284'170);
        row(QString(), 12'500);
    }
    void leavesOutOtherNumbers() {
        QFETCH(QString, line);
        QFETCH(qint64, thousandths);
        QCOMPARE(amountPattern(thousandths).match(line).captured(), QString());
    }
};

int amount_pattern_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<AmountPatternTest>(argc, argv);
}
#include "amount_pattern_test.moc"
