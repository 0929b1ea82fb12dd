#include "export/spending.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

class SpendingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void amountsAreAddedByMonthAndCategory() {
        const QList<Spending> all = spendingByCurrency({{u"2024-05-01"_s, u"lunch"_s, u"EUR"_s, 10},
                                                        {u"2024-05-31"_s, u"lunch"_s, u"EUR"_s, 5.5},
                                                        {u"2024-04-30"_s, u"taxi"_s, u"EUR"_s, 100},
                                                        {u"2024-05-02"_s, u"misc"_s, u"EUR"_s, -3}});
        QCOMPARE(all.size(), 1);
        const Spending &spending = all.first();
        QCOMPARE(spending.currency, u"EUR"_s);
        QCOMPARE(spending.receipts, 4);
        QCOMPARE(spending.categories, QStringList({u"taxi"_s, u"lunch"_s, u"misc"_s}));
        QCOMPARE(spending.months.size(), 2);
        QCOMPARE(spending.months.first().month, u"2024-05"_s);
        QCOMPARE(spending.months.first().sum.total, 12.5);
        QCOMPARE(spending.months.first().sum.byCategory.value(u"lunch"_s), 15.5);
        QVERIFY(!spending.months.first().sum.byCategory.contains(u"taxi"_s));
        QCOMPARE(spending.months.last().month, u"2024-04"_s);
        QCOMPARE(spending.whole.total, 112.5);
    }

    void currenciesAreNeverAdded() {
        const QList<Spending> all = spendingByCurrency({{u"2024-05-01"_s, u"lunch"_s, u"CHF"_s, 10},
                                                        {u"2024-05-01"_s, u"lunch"_s, u"USD"_s, 20},
                                                        {u"2024-05-01"_s, u"lunch"_s, u"USD"_s, 30},
                                                        {u"2024-05-01"_s, u"lunch"_s, QString(), 40}});
        QCOMPARE(all.size(), 3);
        QCOMPARE(all.first().currency, u"USD"_s); // of most receipts
        QCOMPARE(all.first().whole.total, 50);
        QCOMPARE(all.at(1).whole.total, 40);
        QCOMPARE(all.at(2).whole.total, 10);
    }

    void whatHasNoDateComesLast() {
        const QList<Spending> all = spendingByCurrency({{QString(), u"lunch"_s, u"EUR"_s, 1},
                                                        {u"2024-02-30"_s, u"lunch"_s, u"EUR"_s, 2},
                                                        {u"1999-12-31"_s, u"lunch"_s, u"EUR"_s, 4}});
        QCOMPARE(all.first().months.size(), 2);
        QCOMPARE(all.first().months.first().month, u"1999-12"_s);
        QVERIFY(all.first().months.last().month.isEmpty());
        QCOMPARE(all.first().months.last().sum.total, 3);
    }

    void nothingGivesNothing() { QVERIFY(spendingByCurrency({}).isEmpty()); }
};

int spending_test(int argc, char **argv) {
    return runTest<QCoreApplication, SpendingTest>(argc, argv);
}
#include "spending_test.moc"
