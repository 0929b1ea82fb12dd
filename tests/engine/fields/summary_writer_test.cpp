#include "engine/fields/summary_writer.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class SummaryWriterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesPurchasePlaceAndPrice() {
        ReceiptFields fields;
        fields.category = u"lunch"_s;
        fields.location = u"Mario's Cafe"_s;
        fields.amount = 23.5;
        fields.currency = u"USD"_s;
        QCOMPARE(summaryOf(fields), u"Lunch at Mario's Cafe for $23.50"_s);
    }

    void leavesOutWhatIsUnknown() {
        ReceiptFields fields;
        fields.category = u"fuel"_s;
        QCOMPARE(summaryOf(fields), u"Fuel"_s);
        fields.location = u"Northline"_s;
        QCOMPARE(summaryOf(fields), u"Fuel from Northline"_s);
        fields.location.reset();
        fields.amount = 12;
        QCOMPARE(summaryOf(fields), u"Fuel for 12.00"_s);
    }

    void callsTheUnknownAReceipt() {
        ReceiptFields fields;
        fields.category = u"misc"_s;
        fields.location = u"Qwrtz"_s;
        QCOMPARE(summaryOf(fields), u"Receipt from Qwrtz"_s);
    }
};

int summary_writer_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<SummaryWriterTest>(argc, argv);
}
#include "summary_writer_test.moc"
