#include "engine/fields/name_place.h"
#include "support/test_program.h"

using namespace fennick::engine;
using namespace Qt::StringLiterals;

class NamePlaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsANameHoweverItIsSpelled_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("printed");
        const auto row = [](const char *what, const QString &line, const QString &name,
                            const QString &printed) {
            QTest::newRow(what) << line << name << printed;
        };
        row("as it is", u"Corner Shop"_s, u"Corner Shop"_s, u"Corner Shop"_s);
        row("another case", u"* CORNER SHOP *"_s, u"Corner Shop"_s, u"CORNER SHOP"_s);
        row("accents", u"CAFE ZURICH"_s, u"Café Zürich"_s, u"CAFE ZURICH"_s);
        row("sharp s", u"STRASSENCAFE"_s, u"Straßencafé"_s, u"STRASSENCAFE"_s);
        row("digits for letters", u"C0RNER 5H0P"_s, u"Corner Shop"_s, u"C0RNER 5H0P"_s);
        row("rn for m", u"Corner Farrnacy"_s, u"Corner Farmacy"_s, u"Corner Farrnacy"_s);
        row("misread", u"Cormer Shap"_s, u"Corner Shop"_s, u"Cormer Shap"_s);
        row("joined", u"CornerShop Ltd"_s, u"Corner Shop"_s, u"CornerShop"_s);
        row("split", u"Welcome to Corn er Shop"_s, u"Corner Shop"_s, u"Corn er Shop"_s);
        row("apostrophe", u"MARIOS CAFE"_s, u"Mario's Cafe"_s, u"MARIOS CAFE"_s);
        row("inside an address", u"www.corner-shop.com"_s, u"Corner Shop"_s, u"corner-shop"_s);
        row("short", u"BP 4711"_s, u"BP"_s, u"BP"_s);
        row("another script", u"Аптека 36"_s, u"аптека"_s, u"Аптека"_s);
        row("with its address", u"Corner Shop"_s, u"Corner Shop, 12 High Street, Bristol"_s,
            u"Corner Shop"_s);
        row("its address", u"12 High Street"_s, u"Corner Shop, 12 High Street, Bristol"_s,
            u"12 High Street"_s);
        row("its first word", u"STARBUCKS"_s, u"Starbucks Coffee"_s, u"STARBUCKS"_s);
    }
    void findsANameHoweverItIsSpelled() {
        QFETCH(QString, line);
        QFETCH(QString, name);
        QFETCH(QString, printed);
        const auto place = placeOfName(line, name);
        QVERIFY(place);
        QCOMPARE(line.mid(place->start, place->length), printed);
        QVERIFY(place->likeness > 0 && place->likeness <= 1);
    }

    void prefersTheWholeName() {
        QVERIFY(placeOfName(u"Corner Shop"_s, u"Corner Shop"_s)->likeness >
                placeOfName(u"Cormer Shap"_s, u"Corner Shop"_s)->likeness);
        QVERIFY(placeOfName(u"Starbucks Coffee"_s, u"Starbucks Coffee"_s)->likeness >
                placeOfName(u"Starbucks"_s, u"Starbucks Coffee"_s)->likeness);
    }

    void findsNothingThatIsUnlike() {
        QVERIFY(!placeOfName(u"Green tea 12.50"_s, u"Corner Shop"_s));
        QVERIFY(!placeOfName(u"BQ 4711"_s, u"BP"_s)); // one letter is half of it
        QVERIFY(!placeOfName(u"Bristol 5"_s, u"Corner Shop, 12 High Street, Bristol"_s)); // many stand there
        QVERIFY(!placeOfName(QString(), u"Corner Shop"_s));
        QVERIFY(!placeOfName(u"Corner Shop"_s, QString()));
        QVERIFY(!placeOfName(u"Corner Shop"_s, u"***"_s));
    }
};

int name_place_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<NamePlaceTest>(argc, argv);
}
#include "name_place_test.moc"
