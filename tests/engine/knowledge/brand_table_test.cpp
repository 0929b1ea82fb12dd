#include "engine/knowledge/brand_table.h"
#include "engine/knowledge/words.h"
#include "support/test_program.h"

#include <QFile>
#include <QSet>

#include <algorithm>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class BrandTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nameIsFoundByItsWordsWithKindAndCountries() {
        const QList<Brand> brands = brandsNamed(wordsOf(u"SATURN"_s));
        QCOMPARE(brands.size(), 1);
        QCOMPARE(brands.first().name, u"Saturn"_s);
        QCOMPARE(brands.first().category, u"shopping"_s);
        QVERIFY(brands.first().countries.contains(u"DE"_s));
        QVERIFY(!brands.first().countries.contains(u"US"_s));
    }

    void accentsDoNotMatter() {
        QVERIFY(!brandsNamed(wordsOf(u"Aldi Süd"_s)).isEmpty());
        QVERIFY(!brandsNamed(wordsOf(u"ALDI SUD"_s)).isEmpty());
    }

    void nameOfSeveralKindsHasARowForEach() {
        const QList<Brand> brands = brandsNamed(u"costco"_s);
        const auto isFuel = [](const Brand &brand) {
            return brand.category == u"fuel";
        };
        QVERIFY(std::ranges::any_of(brands, isFuel));
        QVERIFY(!std::ranges::all_of(brands, isFuel));
    }

    void unknownNameHasNone() { QVERIFY(brandsNamed(u"no such shop anywhere"_s).isEmpty()); }

    void namesAreListedByBeginningAndLength() {
        QVERIFY(brandNames(u's', 6).contains(u"saturn"_s));
        QVERIFY(!brandNames(u's', 7).contains(u"saturn"_s));
        QVERIFY(brandNames(u's', 2000).isEmpty());
    }

    void taxNumberNamesItsBrand() {
        QCOMPARE(brandOfTaxNumber(u"DE115055186"_s), u"Rossmann"_s);
        QVERIFY(brandOfTaxNumber(u"DE000000000"_s).isEmpty());
    }

    void everyRowIsWellFormed() {
        QFile file(u":/engine/brands.txt"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        static const QSet<QString> categories = {u"groceries"_s, u"fuel"_s,         u"coffee"_s,
                                                 u"meal"_s,      u"hotel"_s,        u"transport"_s,
                                                 u"shopping"_s,  u"entertainment"_s};
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        QVERIFY(lines.size() > 10'000);
        for (const QString &line : lines) {
            if (line.startsWith(u'#')) {
                continue;
            }
            const QStringList cells = line.split(u'\t');
            QVERIFY2(cells.size() == 3 && !cells[0].isEmpty(), qPrintable(line));
            QVERIFY2(categories.contains(cells[1]), qPrintable(line));
            static const QRegularExpression countries(u"^(?:\\*|[A-Z]{2}(?:,[A-Z]{2})*)$"_s);
            QVERIFY2(countries.match(cells[2]).hasMatch(), qPrintable(line));
        }
    }
};

int brand_table_test(int argc, char **argv) {
    return test::runTestWithoutApplication<BrandTableTest>(argc, argv);
}
#include "brand_table_test.moc"
