#include "engine/engine_lines.h"
#include "engine/fields/labelled_amounts.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class LabelledAmountsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pairsLabelAndAmount_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<qint64>("thousandths");
        QTest::addColumn<AmountRole>("role");
        QTest::newRow("one line") << QStringList{u"Total  12.50"_s} << qint64{12500} << AmountRole::total;
        QTest::newRow("line above") << QStringList{u"TOTAL"_s, u"12.50"_s} << qint64{12500}
                                    << AmountRole::total;
        QTest::newRow("currency between")
            << QStringList{u"Total RM 12.50"_s} << qint64{12500} << AmountRole::total;
        QTest::newRow("second column")
            << QStringList{u"Saving 1.00  TOTAL 12.50"_s} << qint64{12500} << AmountRole::total;
        QTest::newRow("negative cash")
            << QStringList{u"Cash -50.00"_s} << qint64{50000} << AmountRole::tendered;
        QTest::newRow("minus behind")
            << QStringList{u"Rounding 0.02-"_s} << qint64{20} << AmountRole::rounding;
        QTest::newRow("item") << QStringList{u"Green tea 2.50"_s} << qint64{2500} << AmountRole::unnamed;
        QTest::newRow("continental") << QStringList{u"Summe 1.234,56"_s} << qint64{1234560}
                                     << AmountRole::total;
        QTest::newRow("whole") << QStringList{u"Total ¥2,980"_s} << qint64{2980000} << AmountRole::total;
    }
    void pairsLabelAndAmount() {
        QFETCH(QStringList, lines);
        QFETCH(qint64, thousandths);
        QFETCH(AmountRole, role);
        const QList<LabelledAmount> amounts = amountsOf(linesOf(lines));
        QVERIFY(!amounts.isEmpty());
        QCOMPARE(amounts.last().thousandths, thousandths);
        QCOMPARE(amounts.last().role, role);
        QCOMPARE(amounts.last().weight, 1.0);
    }

    void doubtsAllButTheLastOfALabel() {
        const QList<LabelledAmount> amounts = amountsOf(linesOf({u"Total 9.90 0.60 10.50"_s}));
        QCOMPARE(amounts.size(), 3);
        QVERIFY(amounts[0].weight < 1 && amounts[1].weight < 1);
        QCOMPARE(amounts[2].weight, 1.0);
    }

    void doubtsTaxTables() {
        const QList<LabelledAmount> amounts =
            amountsOf(linesOf({u"Total 10.50"_s, u"GST Summary"_s, u"Total 9.90"_s}));
        QCOMPARE(amounts.size(), 2);
        QVERIFY(amounts[1].weight < amounts[0].weight / 2);
    }

    void doubtsWholeNumbersAmongPrices() {
        const QList<LabelledAmount> amounts = amountsOf(linesOf({u"Tea 2.50"_s, u"Total 3"_s}));
        QCOMPARE(amounts.size(), 2);
        QVERIFY(amounts[1].weight < 0.5);
    }

    void takesALostDecimalSignIntoAccount() {
        const QList<LabelledAmount> amounts = amountsOf(linesOf({u"Tea 48.15"_s, u"Total : = 4815."_s}));
        QCOMPARE(amounts.size(), 2);
        QCOMPARE(amounts[1].thousandths, 48150);
        QVERIFY(amounts[1].weight < 0.5);
    }

    void doubtsUnsureRecognition() {
        Reading lines = linesOf({u"Total 10.50"_s});
        lines[0].confidence = 0.2;
        QVERIFY(amountsOf(lines).first().weight < 0.7);
    }

    void findsNoneWithoutNumbers() {
        QVERIFY(amountsOf(linesOf({u"Total"_s, u"Thank you"_s})).isEmpty());
        QVERIFY(amountsOf({}).isEmpty());
    }
};

int labelled_amounts_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<LabelledAmountsTest>(argc, argv);
}
#include "labelled_amounts_test.moc"
