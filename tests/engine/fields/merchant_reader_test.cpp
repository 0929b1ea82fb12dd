#include "engine/engine_lines.h"
#include "engine/fields/merchant_reader.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

std::optional<QString> merchantIn(const QList<Reading> &readings) {
    return readMerchant(readings, MerchantLines(testLanguages));
}

} // namespace

class MerchantReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTheName_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("name");
        QTest::newRow("first line") << QStringList{u"Mario's Cafe"_s, u"12 High Street"_s}
                                    << u"Mario's Cafe"_s;
        QTest::newRow("after a heading")
            << QStringList{u"TAX INVOICE"_s, u"Juniper Street Deli"_s} << u"Juniper Street Deli"_s;
        QTest::newRow("after a greeting") << QStringList{u"Welcome to"_s, u"Bio Fyren"_s} << u"Bio Fyren"_s;
        QTest::newRow("after a number")
            << QStringList{u"0042 / 17"_s, u"***"_s, u"Corner Shop"_s} << u"Corner Shop"_s;
        QTest::newRow("after an address")
            << QStringList{u"415 Juniper Street"_s, u"Columbus, OH 43215"_s, u"Blue Door"_s}
            << u"Blue Door"_s;
        QTest::newRow("after contact data")
            << QStringList{u"www.bluedoor.example"_s, u"Tel 01632 960114"_s, u"Blue Door"_s}
            << u"Blue Door"_s;
        QTest::newRow("after a date") << QStringList{u"Date: 2024-05-01"_s, u"Blue Door"_s} << u"Blue Door"_s;
        QTest::newRow("without stars") << QStringList{u"*** Corner Shop ***"_s} << u"Corner Shop"_s;
        QTest::newRow("without its registration")
            << QStringList{u"HARBOUR TRADING SDN BHD (123456-X)"_s} << u"HARBOUR TRADING SDN BHD"_s;
        QTest::newRow("left of a second column")
            << QStringList{u"Brightdesk  Invoice 48213"_s} << u"Brightdesk"_s;
        QTest::newRow("name above its operator")
            << QStringList{u"Metro Silver Taxi"_s, u"Blue Ridge Hospitality Group LLC"_s,
                           u"2863 Highway 50"_s, u"metrosilver.com"_s}
            << u"Metro Silver Taxi"_s;
        QTest::newRow("name that holds a heading's word")
            << QStringList{u"The Bill Store Company"_s} << u"The Bill Store Company"_s;
    }
    void findsTheName() {
        QFETCH(QStringList, lines);
        QFETCH(QString, name);
        QCOMPARE(merchantIn({linesOf(lines)}), std::optional(name));
    }

    void prefersCompanies_data() {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("name");
        QTest::newRow("legal form below a brand") << QStringList{u"Blue Door"_s, u"HARBOUR LEISURE SDN BHD"_s,
                                                                 u"(123456-X)"_s, u"Level 2, Jalan Bayu"_s}
                                                  << u"HARBOUR LEISURE SDN BHD"_s;
        QTest::newRow("below a scribble")
            << QStringList{u"o ku wz"_s, u"HARBOUR TRADING"_s, u"No 3, Jalan Bayu"_s} << u"HARBOUR TRADING"_s;
        QTest::newRow("below a name in small letters")
            << QStringList{u"john doe"_s, u"HARBOUR BOOKS SDN BHD"_s} << u"HARBOUR BOOKS SDN BHD"_s;
        QTest::newRow("brackets over two lines")
            << QStringList{u"HARBOUR MARKET"_s, u"(WEST) SDN BHD"_s, u"(123456-X)"_s}
            << u"HARBOUR MARKET (WEST) SDN BHD"_s;
        QTest::newRow("brackets over three lines")
            << QStringList{u"HARBOUR HARDWARE"_s, u"ENTERPRISE (SOUTH"_s, u"BAY) SDN BHD"_s}
            << u"HARBOUR HARDWARE ENTERPRISE (SOUTH BAY) SDN BHD"_s;
        QTest::newRow("company in the second line")
            << QStringList{u"HARBOUR BOOK"_s, u"CO. (M) SDN BHD"_s} << u"HARBOUR BOOK CO. (M) SDN BHD"_s;
        QTest::newRow("not the buyer")
            << QStringList{u"Blue Door"_s, u"Bill to:"_s, u"Harbour Ltd"_s} << u"Blue Door"_s;
        QTest::newRow("not the owner")
            << QStringList{u"HARBOUR SHOP"_s, u"Owned by :"_s, u"BAY SUPPLY SDN BHD"_s} << u"HARBOUR SHOP"_s;
        QTest::newRow("misread form")
            << QStringList{u"HARBOUR MART SON BHD (99887-A)"_s} << u"HARBOUR MART SDN BHD"_s;
    }
    void prefersCompanies() { findsTheName(); }

    void joinsANameInLargePrint() {
        Reading lines = linesOf({u"HARBOUR LIGHTS"_s, u"WESTERN PIER HOLDINGS SDN BHD"_s, u"12 High Street"_s,
                                 u"Ticket 1"_s, u"Entry 10:00"_s});
        lines[0].box.setHeight(30);
        lines[1].box.setHeight(30);
        QCOMPARE(merchantIn({lines}), std::optional(u"HARBOUR LIGHTS WESTERN PIER HOLDINGS SDN BHD"_s));
    }

    void letsReadingsVote() {
        const Reading right = linesOf({u"HARBOUR STATIONERY SHOP"_s});
        const Reading wrong = linesOf({u"HARBOOR STATIONFRY SHOP"_s});
        const Reading other = linesOf({u"HARBOUR STATIONERY SH0P"_s});
        QCOMPARE(merchantIn({wrong, right, other, right}), std::optional(u"HARBOUR STATIONERY SHOP"_s));
    }

    void passesOverWhatWasHardlyRecognised() {
        QList<TextLine> lines = linesOf({u"Oe ww AOSD"_s, u"Corner Shop"_s});
        lines[0].confidence = 0.2;
        QCOMPARE(merchantIn({lines}), std::optional(u"Corner Shop"_s));
    }

    void findsNoneInItemsAndNumbers() {
        QCOMPARE(merchantIn({linesOf({u"Receipt"_s, u"Tea 3.00"_s, u"12345"_s, u"Total 3.00"_s})}),
                 std::nullopt);
        QCOMPARE(merchantIn({}), std::nullopt);
    }
};

int merchant_reader_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<MerchantReaderTest>(argc, argv);
}
#include "merchant_reader_test.moc"
