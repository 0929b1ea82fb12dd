#include "engine/engine_lines.h"
#include "engine/fields/merchant_lines.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class MerchantLinesTest : public QObject {
    Q_OBJECT

    static void addRows(const QStringList &lines) {
        QTest::addColumn<QString>("line");
        for (const QString &line : lines)
            QTest::newRow(qPrintable(line)) << line;
    }

private Q_SLOTS:
    void knowsHeadings_data() {
        addRows({u"TAX INVOICE"_s, u"Receipt"_s, u"Sales receipt no 12"_s, u"Simplified tax invoice"_s,
                 u"Rechnung"_s, u"Welcome to"_s, u"Cash bill"_s, u"Order confirmation"_s, u"Guest check"_s});
    }
    void knowsHeadings() {
        QFETCH(QString, line);
        QVERIFY(MerchantLines(testLanguages).isHeading(line));
    }

    void takesNamesForNoHeadings_data() {
        addRows({u"The Bill Store Company"_s, u"Receipt Coffee"_s, u"Corner Shop"_s, u"Order & Chaos Ltd"_s});
    }
    void takesNamesForNoHeadings() {
        QFETCH(QString, line);
        QVERIFY(!MerchantLines(testLanguages).isHeading(line));
    }

    void knowsDetails_data() {
        addRows({u"Tel 030 123456"_s, u"Fax: 03-5519"_s, u"12 High Street"_s, u"No 5, Jalan Kenanga 2"_s,
                 u"LOT 17 GROUND FLOOR"_s, u"www.corner.example"_s, u"mail@corner.example"_s, u"Table: 4"_s,
                 u"GST Reg No 0012"_s, u"43300 Seri Bayu"_s, u"Columbus, OH 43215"_s, u"Hauptstraße 5"_s,
                 u"Taman Bayu, Johor"_s, u"Level 3, West Wing"_s, u"Date 01.05.2024"_s, u"VAT no GB 12"_s});
    }
    void knowsDetails() {
        QFETCH(QString, line);
        QVERIFY(MerchantLines(testLanguages).isDetail(line));
    }

    void takesNamesForNoDetails_data() {
        addRows({u"Corner Shop"_s, u"Street Food Kitchen"_s, u"7 Hills Coffee"_s, u"Baker & Sons Ltd"_s,
                 u"Taman Bakery"_s});
    }
    void takesNamesForNoDetails() {
        QFETCH(QString, line);
        QVERIFY(!MerchantLines(testLanguages).isDetail(line));
    }

    void knowsRegistrations() {
        QVERIFY(MerchantLines(testLanguages).isRegistration(u"(123456-X)"_s));
        QVERIFY(MerchantLines(testLanguages).isRegistration(u"Co. Reg. No 88123-W"_s));
        QVERIFY(MerchantLines(testLanguages).isRegistration(u"Company No: 0912345"_s));
        QVERIFY(MerchantLines(testLanguages).isRegistration(u"ABN 12 345 678 901"_s));
        QVERIFY(!MerchantLines(testLanguages).isRegistration(u"12 High Street"_s));
        QVERIFY(!MerchantLines(testLanguages).isRegistration(u"Corner Shop"_s));
    }

    void knowsOtherParties() {
        QVERIFY(MerchantLines(testLanguages).introducesAnother(u"Bill to:"_s));
        QVERIFY(MerchantLines(testLanguages).introducesAnother(u"SOLD TO"_s));
        QVERIFY(MerchantLines(testLanguages).introducesAnother(u"Owned by :"_s));
        QVERIFY(!MerchantLines(testLanguages).introducesAnother(u"Corner Shop"_s));
    }

    void countsLetters() {
        QVERIFY(isMostlyLetters(u"Shop 24"_s));
        QVERIFY(!isMostlyLetters(u"03-9201 6281 A"_s));
        QVERIFY(!isMostlyLetters(u"ab"_s));
        QVERIFY(!isMostlyLetters(u""_s));
    }
};

int merchant_lines_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<MerchantLinesTest>(argc, argv);
}
#include "merchant_lines_test.moc"
