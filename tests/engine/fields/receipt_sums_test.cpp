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
            << QList{amount(Tendered, 5000), amount(Change, 1250)} << qint64{37500} << qint64{50000};
        QTest::newRow("subtotal and tax")
            << QList{amount(SubTotal, 1000), amount(Tax, 60)} << qint64{10600} << qint64{10000};
        QTest::newRow("subtotal, service and tax")
            << QList{amount(SubTotal, 1000), amount(Charge, 100), amount(Tax, 66)} << qint64{11660}
            << qint64{12000};
        QTest::newRow("subtotal less discount")
            << QList{amount(SubTotal, 1000), amount(Discount, 200)} << qint64{8000} << qint64{10000};
        QTest::newRow("rounded sum") << QList{amount(SubTotal, 1000), amount(Tax, 62), amount(Rounding, 2)}
                                     << qint64{10600} << qint64{10640};
        QTest::newRow("card") << QList{amount(Card, 990)} << qint64{9900} << qint64{9910};
        QTest::newRow("items") << QList{amount(Unnamed, 250, 1), amount(Unnamed, 150, 2),
                                        amount(Total, 400, 3)}
                               << qint64{4000} << qint64{3000};
        QTest::newRow("items below an address") << QList{amount(Unnamed, 5557, 0), amount(Unnamed, 250, 1),
                                                         amount(Unnamed, 150, 2), amount(Total, 400, 3)}
                                                << qint64{4000} << qint64{59580};
        QTest::newRow("rounded further down")
            << QList{amount(Total, 1239, 1), amount(Total, 1240, 2)} << qint64{12400} << qint64{12390};
        QTest::newRow("cash pays the rounded total")
            << QList{amount(Total, 1238), amount(Rounding, 2), amount(Tendered, 2000), amount(Change, 760)}
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
        const ReceiptSums change({amount(AmountRole::Tendered, 1000), amount(AmountRole::Change, 250)});
        const ReceiptSums noChange({amount(AmountRole::Tendered, 750), amount(AmountRole::Change, 0)});
        const double withChange = change.supportFor(7500);
        const double exact = noChange.supportFor(7500);
        QVERIFY(withChange > exact);
        QVERIFY(exact > 0);
    }

    void derivesTotals() {
        const ReceiptSums sums({amount(AmountRole::SubTotal, 1000), amount(AmountRole::Tax, 60),
                                amount(AmountRole::Tendered, 2000), amount(AmountRole::Change, 940)});
        QCOMPARE(sums.totals(), QSet<qint64>{10600});
        QVERIFY(ReceiptSums({}).totals().isEmpty());
        QVERIFY(ReceiptSums({amount(AmountRole::Tendered, 2000)}).totals().isEmpty());
    }

    void doubtsWhatWasHardlyRead() {
        LabelledAmount faint = amount(AmountRole::Tendered, 5000);
        faint.weight = 0.1;
        const ReceiptSums sums({faint, amount(AmountRole::Change, 1250)});
        QCOMPARE(sums.supportFor(37500), 0.0);
    }
};

int receipt_sums_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<ReceiptSumsTest>(argc, argv);
}
#include "receipt_sums_test.moc"
