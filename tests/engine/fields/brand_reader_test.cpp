#include "engine/engine_lines.h"
#include "engine/fields/brand_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

QString brandIn(const QStringList &lines) {
    const auto brand = readBrand({brandScores(linesOf(lines))});
    return brand ? brand->name : QString();
}

// What stands below a heading, so that what follows is in none.
const QStringList items = {u"12 Any Street"_s, u"Bread 2.10"_s,  u"Milk 1.20"_s, u"Butter 2.90"_s,
                           u"Cheese 4.10"_s,   u"Apples 1.99"_s, u"Tea 3.30"_s,  u"Total 15.59"_s};

} // namespace

class BrandReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void brandIsFoundWhereAShopNamesItself_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("brand");
        QTest::newRow("heading") << QStringList{u"SATURN"_s, u"Total 12.00"_s} << u"Saturn"_s;
        QTest::newRow("in a column of its own")
            << QStringList{u"SATURN  Terminal 4"_s, u"Total 12.00"_s} << u"Saturn"_s;
        QTest::newRow("legal form at the end")
            << items + QStringList{u"Aldi GmbH & Co. KG"_s, u"Vielen Dank"_s} << u"Aldi"_s;
        QTest::newRow("before the country") << QStringList{u"SC AUCHAN ROMANIA SA"_s} + items << u"Auchan"_s;
        QTest::newRow("web address") << items + QStringList{u"Visit www.saturn.de"_s} << u"Saturn"_s;
        QTest::newRow("tax number") << items + QStringList{u"USt-ID: DE 115 055 186"_s} << u"Rossmann"_s;
        QTest::newRow("a letter misread") << QStringList{u"ROSSNANN"_s, u"Total 12.00"_s} << u"Rossmann"_s;
        QTest::newRow("accents lost") << QStringList{u"ALDI SUD"_s, u"Total 12.00"_s} << u"Aldi Süd"_s;
    }
    void brandIsFoundWhereAShopNamesItself() {
        QFETCH(QStringList, lines);
        QTEST(brandIn(lines), "brand");
    }

    void brandElsewhereIsNone_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("bought") << items + QStringList{u"Starbucks Latte 2.50"_s};
        QTest::newRow("bought, without a price") << items + QStringList{u"Starbucks"_s};
        QTest::newRow("mail address") << items + QStringList{u"harbour@saturn.de"_s};
        QTest::newRow("another tax number") << items + QStringList{u"USt-ID: DE 123 456 789"_s};
        QTest::newRow("two letters misread") << QStringList{u"ROSSNAMN"_s, u"Total 12.00"_s};
        QTest::newRow("no brand at all") << items;
    }
    void brandElsewhereIsNone() {
        QFETCH(QStringList, lines);
        QCOMPARE(brandIn(lines), QString());
    }

    void oneReadingOfManyIsNotEnough() {
        QList<Reading> readings(8, linesOf(items));
        readings[3] = linesOf(QStringList{u"SATURN"_s} + items);
        QVERIFY(!readBrand(factOfEach(readings, &brandScores)));
    }

    void kindsAndCountriesComeWithIt() {
        const auto costco = readBrand({brandScores(linesOf({u"COSTCO"_s}))});
        QVERIFY(costco);
        QVERIFY(costco->categories.contains(u"fuel"_s));
        QVERIFY(costco->categories.contains(u"groceries"_s));
        QVERIFY(costco->countries.isEmpty()); // of more than a few countries
    }
};

int brand_reader_test(int argc, char **argv) {
    return test::runTestWithoutApplication<BrandReaderTest>(argc, argv);
}
#include "brand_reader_test.moc"
