#include "engine/engine_lines.h"
#include "engine/fields/company_names.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class CompanyNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesOffWhatSurroundsAName_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << u"Corner Shop"_s << u"Corner Shop"_s;
        QTest::newRow("stars") << u"*** Corner Shop ***"_s << u"Corner Shop"_s;
        QTest::newRow("registration") << u"HARBOUR SDN BHD (123456-X)"_s << u"HARBOUR SDN BHD"_s;
        QTest::newRow("registration cut off") << u"HARBOUR TRADING (123456 X"_s << u"HARBOUR TRADING"_s;
        QTest::newRow("registration without brackets") << u"HARBOUR S/B 123456-X (HB)"_s << u"HARBOUR S/B"_s;
        QTest::newRow("inner brackets stay") << u"HARBOUR (M) SDN BHD"_s << u"HARBOUR (M) SDN BHD"_s;
        QTest::newRow("column") << u"Brightdesk  Invoice 48213"_s << u"Brightdesk"_s;
        QTest::newRow("column of a heading") << u"Corner Shop  Tax Invoice"_s << u"Corner Shop"_s;
        QTest::newRow("wide print") << u"CORNER  SHOP  TRADING"_s << u"CORNER SHOP TRADING"_s;
        QTest::newRow("edge of paper") << u"| CORNER SHOP  |"_s << u"CORNER SHOP"_s;
        QTest::newRow("misread form") << u"HARBOUR SON BHD"_s << u"HARBOUR SDN BHD"_s;
        QTest::newRow("misread form, both words") << u"HARBOUR SON BHO"_s << u"HARBOUR SDN BHD"_s;
        QTest::newRow("misread form with points") << u"Harbour Sdn. Bhd."_s << u"Harbour Sdn. Bhd."_s;
        QTest::newRow("misread short form") << u"HARBOUR 5/B"_s << u"HARBOUR S/B"_s;
        QTest::newRow("misread initials") << u"H.1.¥. (M) SDN BHD"_s << u"H.I.Y. (M) SDN BHD"_s;
        QTest::newRow("other words stay") << u"SONS AND BIRD"_s << u"SONS AND BIRD"_s;
    }
    void takesOffWhatSurroundsAName() {
        QFETCH(QString, line);
        QFETCH(QString, name);
        QCOMPARE(companyName(line, MerchantLines(testLanguages)), name);
    }

    void knowsLegalForms_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("has");
        for (const char *name :
             {"Harbour Sdn Bhd", "HARBOUR SDN. BHD.", "Harbour S/B", "Harbour Ltd", "Harbour Ltd.",
              "Harbour Inc.", "Harbour LLC", "Harbour GmbH", "Harbour Pty Ltd", "Harbour AB", "Harbour plc",
              "Harbour S.A.R.L", "Harbour Pte. Ltd"})
            QTest::newRow(name) << QString::fromUtf8(name) << true;
        for (const char *name : {"Harbour", "Incline Sports", "Tabor", "Corner Shop", "Bhdx"})
            QTest::newRow(name) << QString::fromUtf8(name) << false;
    }
    void knowsLegalForms() {
        QFETCH(QString, name);
        QFETCH(bool, has);
        QCOMPARE(MerchantLines(testLanguages).hasLegalForm(name), has);
    }

    void knowsBusinessWords() {
        QVERIFY(MerchantLines(testLanguages).hasBusinessWord(u"Harbour Hardware"_s));
        QVERIFY(MerchantLines(testLanguages).hasBusinessWord(u"RESTORAN HARBOUR"_s));
        QVERIFY(!MerchantLines(testLanguages).hasBusinessWord(u"Harbour Lights"_s));
        QVERIFY(!MerchantLines(testLanguages).hasBusinessWord(u"Bistro & Cafe"_s));
    }

    void knowsTheRestOfAName() {
        QVERIFY(isOnlyLegalForm(u"CO. (M) SDN BHD"_s, MerchantLines(testLanguages)));
        QVERIFY(isOnlyLegalForm(u"(M) SDN BHD"_s, MerchantLines(testLanguages)));
        QVERIFY(isOnlyLegalForm(u"ENTERPRISE SDN BHD"_s, MerchantLines(testLanguages)));
        QVERIFY(!isOnlyLegalForm(u"Company Reg. No 1234567"_s, MerchantLines(testLanguages)));
        QVERIFY(!isOnlyLegalForm(u"Harbour Sdn Bhd"_s, MerchantLines(testLanguages)));
    }
};

int company_names_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<CompanyNamesTest>(argc, argv);
}
#include "company_names_test.moc"
