#include "pipeline/typed_fields.h"
#include "support/receipts.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const FieldFormats formats{QLocale(QLocale::German, QLocale::Germany),
                           QLocale(QLocale::German, QLocale::Germany)};

} // namespace

class TypedFieldsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFieldIsTaken() {
        const Receipt before = finishedReceipt(u"/a.pdf"_s);
        const auto after = withTypedFields(before,
                                           {{ReceiptField::date, u"1.6.24"_s},
                                            {ReceiptField::time, u"9:15"_s},
                                            {ReceiptField::amount, u"1.234,50"_s},
                                            {ReceiptField::currency, u"eur"_s},
                                            {ReceiptField::location, u" Harbour Café "_s},
                                            {ReceiptField::category, u"dinner"_s},
                                            {ReceiptField::summary, u"Dinner\nfor four"_s}},
                                           formats);
        QVERIFY(after);
        Receipt expected = before;
        expected.date = u"2024-06-01"_s;
        expected.time = u"09:15"_s;
        expected.amount = 1234.5;
        expected.currency = u"EUR"_s;
        expected.location = u"Harbour Café"_s;
        expected.category = u"dinner"_s;
        expected.summary = u"Dinner for four"_s;
        QCOMPARE(*after, expected);
    }

    void emptiedFieldsAreAbsent() {
        const auto after = withTypedFields(finishedReceipt(u"/a.pdf"_s),
                                           {{ReceiptField::date, QString()},
                                            {ReceiptField::time, QString()},
                                            {ReceiptField::amount, QString()},
                                            {ReceiptField::currency, QString()},
                                            {ReceiptField::location, u" "_s},
                                            {ReceiptField::summary, QString()}},
                                           formats);
        QVERIFY(after);
        QVERIFY(!after->date && !after->time && !after->amount && !after->currency && !after->location);
        QVERIFY(after->summary.isEmpty());
    }

    void fieldsThatWereNotTypedKeepWhateverTheyAre() {
        Receipt odd = finishedReceipt(u"/a.pdf"_s);
        odd.date = u"2024-02-31"_s;
        odd.currency = u"???"_s;
        odd.amount = 12.345678;
        odd.category = u"of another hand"_s;
        const auto after = withTypedFields(odd, {{ReceiptField::summary, u"New"_s}}, formats);
        QVERIFY(after);
        odd.summary = u"New"_s;
        QCOMPARE(*after, odd);
    }

    void everyProblemIsTold() {
        const auto after = withTypedFields(finishedReceipt(u"/a.pdf"_s),
                                           {{ReceiptField::date, u"31.2.2024"_s},
                                            {ReceiptField::amount, u"a lot"_s},
                                            {ReceiptField::category, u"Lunch"_s},
                                            {ReceiptField::summary, u"New"_s}},
                                           formats);
        QVERIFY(!after);
        QCOMPARE(after.error().size(), std::size_t{3});
        QCOMPARE(after.error().at(ReceiptField::date).kind, FieldProblem::Kind::unknownDay);
        QCOMPARE(after.error().at(ReceiptField::amount).kind, FieldProblem::Kind::unclearAmount);
        QCOMPARE(after.error().at(ReceiptField::category).kind, FieldProblem::Kind::unknownCategory);
    }

    void whatIsShownIsUnderstoodAgain() {
        const Receipt receipt = finishedReceipt(u"/a.pdf"_s);
        TypedFields shown;
        for (const ReceiptField field : receiptFields) {
            shown.emplace(field, fieldText(receipt, field, formats));
        }
        QCOMPARE(shown.at(ReceiptField::amount), u"23,50"_s);
        QCOMPARE(withTypedFields(receipt, shown, formats).value(), receipt);
    }
};

int typed_fields_test(int argc, char **argv) {
    return runTest<QCoreApplication, TypedFieldsTest>(argc, argv);
}
#include "typed_fields_test.moc"
