#include "engine/fields/receipt_sums.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

LabelledAmount amount(AmountRole role, qint64 cents, qsizetype line = 0) {
    return {.thousandths = 10 * cents, .role = role, .hasDecimals = true, .line = line};
}

} // namespace

class ReceiptSumsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsSupport_data() {
        QTest::addColumn<QList<LabelledAmount>>("amounts");
        QTest::addColumn<qint64>("supported");
        QTest::addColumn<qint64>("unsupported");
        using enum AmountRole;
        QTest::newRow("cash less change")
            << QList{amount(tendered, 5000), amount(change, 1250)} << qint64{37500} << qint64{50000};
        QTest::newRow("subtotal and tax")
            << QList{amount(subtotal, 1000), amount(tax, 60)} << qint64{10600} << qint64{10000};
        QTest::newRow("subtotal, service and tax")
            << QList{amount(subtotal, 1000), amount(charge, 100), amount(tax, 66)} << qint64{11660}
            << qint64{12000};
        QTest::newRow("subtotal less discount")
            << QList{amount(subtotal, 1000), amount(discount, 200)} << qint64{8000} << qint64{10000};
        QTest::newRow("rounded sum") << QList{amount(subtotal, 1000), amount(tax, 62), amount(rounding, 2)}
                                     << qint64{10600} << qint64{10640};
        QTest::newRow("card") << QList{amount(card, 990)} << qint64{9900} << qint64{9910};
        QTest::newRow("items") << QList{amount(unnamed, 250, 1), amount(unnamed, 150, 2),
                                        amount(total, 400, 3)}
                               << qint64{4000} << qint64{3000};
        QTest::newRow("items below an address") << QList{amount(unnamed, 5557, 0), amount(unnamed, 250, 1),
                                                         amount(unnamed, 150, 2), amount(total, 400, 3)}
                                                << qint64{4000} << qint64{59580};
        QTest::newRow("rounded further down")
            << QList{amount(total, 1239, 1), amount(total, 1240, 2)} << qint64{12400} << qint64{12390};
        QTest::newRow("cash pays the rounded total")
            << QList{amount(total, 1238), amount(rounding, 2), amount(tendered, 2000), amount(change, 760)}
            << qint64{12380} << qint64{12390};
    }
    void findsSupport() {
        QFETCH(QList<LabelledAmount>, amounts);
        QFETCH(qint64, supported);
        QFETCH(qint64, unsupported);
        const ReceiptSums sums(amounts);
        QVERIFY(sums.supportFor(supported) > 0);
        QCOMPARE(sums.supportFor(unsupported), 0.0);
    }

    void trustsChangeMoreThanExactCash() {
        const ReceiptSums change({amount(AmountRole::tendered, 1000), amount(AmountRole::change, 250)});
        const ReceiptSums noChange({amount(AmountRole::tendered, 750), amount(AmountRole::change, 0)});
        const double withChange = change.supportFor(7500);
        const double exact = noChange.supportFor(7500);
        QVERIFY(withChange > exact);
        QVERIFY(exact > 0);
    }

    void derivesTotals() {
        const ReceiptSums sums({amount(AmountRole::subtotal, 1000), amount(AmountRole::tax, 60),
                                amount(AmountRole::tendered, 2000), amount(AmountRole::change, 940)});
        QCOMPARE(sums.totals(), QSet<qint64>{10600});
        QVERIFY(ReceiptSums({}).totals().isEmpty());
        QVERIFY(ReceiptSums({amount(AmountRole::tendered, 2000)}).totals().isEmpty());
    }

    void doubtsWhatWasHardlyRead() {
        LabelledAmount faint = amount(AmountRole::tendered, 5000);
        faint.weight = 0.1;
        const ReceiptSums sums({faint, amount(AmountRole::change, 1250)});
        QCOMPARE(sums.supportFor(37500), 0.0);
    }
};

int receipt_sums_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<ReceiptSumsTest>(argc, argv);
}
#include "receipt_sums_test.moc"
