#include "engine/fields/price_repair.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class PriceRepairTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void repairs_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("repaired");
        QTest::newRow("currency attached") << u"Total RM7.00"_s << u"Total RM 7.00"_s;
        QTest::newRow("currency misread") << u"Total fM9.00"_s << u"Total fM 9.00"_s;
        QTest::newRow("letter O") << u"Total 12.5O"_s << u"Total 12.50"_s;
        QTest::newRow("letter l") << u"Total l2.50"_s << u"Total 12.50"_s;
        QTest::newRow("letter S") << u"Total 1S.50"_s << u"Total 15.50"_s;
        QTest::newRow("letter B") << u"Total B2.50"_s << u"Total 82.50"_s;
        QTest::newRow("at sign") << u"Total 2@.00"_s << u"Total 20.00"_s;
        QTest::newRow("blank after point") << u"Total 36. 20"_s << u"Total 36.20"_s;
        QTest::newRow("blank after comma") << u"Total 36, 20"_s << u"Total 36,20"_s;
        QTest::newRow("blank before point") << u"Total 17 .30"_s << u"Total 17.30"_s;
        QTest::newRow("point lost") << u"Sub Total  15 32"_s << u"Sub Total  15.32"_s;
        QTest::newRow("point lost after a nought") << u"Change : 005"_s << u"Change : 0.05"_s;
    }
    void repairs() {
        QFETCH(QString, line);
        QFETCH(QString, repaired);
        QCOMPARE(repairedPrices(line), repaired);
    }

    void leavesTheRestAlone_data() {
        QTest::addColumn<QString>("line");
        for (const char *line :
             {"Total 23.50", "2 x 4.00  8.00", "01.05.2024 12:30", "Tel 030 55 66 77", "S.O.S",
              "Isle of Dogs", "7.5 %", "Table 12", "1,234.56", "A4 paper", "www.shop.example", "B.O. 12"})
            QTest::newRow(line) << QString::fromUtf8(line);
    }
    void leavesTheRestAlone() {
        QFETCH(QString, line);
        QCOMPARE(repairedPrices(line), line);
    }
};

int price_repair_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<PriceRepairTest>(argc, argv);
}
#include "price_repair_test.moc"
