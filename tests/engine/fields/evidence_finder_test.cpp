#include "engine/engine_lines.h"
#include "engine/fields/evidence_finder.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

// `texts` one below the other, a tenth of the page each, every word a piece of its own and each letter a
// hundredth wide.
Reading placedLines(const QStringList &texts) {
    Reading lines = linesOf(texts);
    for (qsizetype row = 0; row < lines.size(); ++row) {
        TextLine &line = lines[row];
        qsizetype start = 0;
        const QStringList words = line.text.split(u' ');
        for (const QString &word : words) {
            line.pieces.append(
                {.start = start,
                 .length = word.size(),
                 .place = QRectF(static_cast<double>(start) / 100, static_cast<double>(row) / 10,
                                 static_cast<double>(word.size()) / 100, 0.1)});
            start += word.size() + 1;
        }
    }
    return lines;
}

ReceiptEvidence evidenceIn(const QList<Reading> &readings, const ReceiptFields &fields) {
    return findEvidence(fields, factOfEach(readings, &factsOf));
}

const QStringList receipt = {u"Corner Shop"_s,         u"12 High Street, Bristol BS1 4QA"_s,
                             u"04/05/2024 14:32"_s,    u"Green tea 12.50"_s,
                             u"Total GBP 12.50"_s,     u"Card 12.50"_s,
                             u"Return by 04/06/2024"_s};

} // namespace

class EvidenceFinderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsEachValue() {
        ReceiptFields fields;
        fields.date = QDate(2024, 5, 4);
        fields.time = QTime(14, 32);
        fields.amount = 12.5;
        fields.currency = u"GBP"_s;
        fields.location = u"Corner Shop"_s;
        const ReceiptEvidence evidence = evidenceIn({placedLines(receipt)}, fields);
        QVERIFY(evidence.date && evidence.time && evidence.total && evidence.currency && evidence.merchant);
        QCOMPARE(evidence.date->text, u"04/05/2024"_s);
        QCOMPARE(evidence.date->place, QRectF(0, 0.2, 0.10, 0.1));
        QCOMPARE(evidence.time->text, u"14:32"_s);
        QCOMPARE(evidence.time->place, QRectF(0.11, 0.2, 0.05, 0.1));
        QCOMPARE(evidence.total->text, u"12.50"_s);
        QCOMPARE(evidence.total->place, QRectF(0.10, 0.4, 0.05, 0.1)); // beside its label, not the item's
        QCOMPARE(evidence.currency->text, u"GBP"_s);
        QCOMPARE(evidence.merchant->text, u"Corner Shop"_s);
        QCOMPARE(evidence.merchant->place, QRectF(0, 0, 0.11, 0.1));
    }

    void findsNothingForWhatIsNotPrinted() {
        ReceiptFields fields;
        fields.date = QDate(2023, 1, 1);
        fields.time = QTime(9, 0);
        fields.amount = 99.0;
        fields.currency = u"JPY"_s;
        fields.location = u"Harbour Lights"_s;
        const ReceiptEvidence evidence = evidenceIn({placedLines(receipt)}, fields);
        QVERIFY(!evidence.date && !evidence.time && !evidence.total && !evidence.currency &&
                !evidence.merchant);
        QVERIFY(!evidenceIn({}, fields).date);
    }

    void takesTheReadingThatIsSurest() {
        Reading faint = placedLines({u"Total 12.50"_s});
        faint[0].confidence = 0.2;
        Reading clear = placedLines({u"Smudge"_s, u"Total 12.50"_s});
        ReceiptFields fields;
        fields.amount = 12.5;
        QCOMPARE(evidenceIn({faint, clear}, fields).total->place.top(), 0.1);
    }

    void cutsAPieceThatHoldsMore() {
        Reading lines = linesOf({u"Total 12.50"_s});
        lines[0].pieces = {{.start = 0, .length = 11, .place = QRectF(0, 0, 0.55, 0.1)}};
        lines[0].page = 2;
        ReceiptFields fields;
        fields.amount = 12.5;
        const ReceiptEvidence evidence = evidenceIn({lines}, fields);
        QCOMPARE(evidence.total->place, QRectF(0.30, 0, 0.25, 0.1));
        QCOMPARE(evidence.total->page, 2);
    }

    void findsARefundByItsAmount() {
        ReceiptFields fields;
        fields.amount = -12.5;
        QVERIFY(evidenceIn({placedLines({u"Total -12.50"_s})}, fields).total);
    }

    void findsValuesThatAnotherServiceRead() {
        ReceiptFields fields;
        fields.amount = 1284.17;
        fields.currency = u"USD"_s;
        fields.location = u"Corner Shop, 12 High Street, Bristol"_s;
        const ReceiptEvidence evidence =
            evidenceIn({placedLines({u"CORNER SHOP"_s, u"Thank you"_s, u"$ 1 284.17"_s})}, fields);
        QCOMPARE(evidence.total->text, u"1 284.17"_s);
        QCOMPARE(evidence.currency->text, u"$"_s);
        QCOMPARE(evidence.merchant->text, u"CORNER SHOP"_s);
    }

    void findsADateInEveryForm() {
        ReceiptFields fields;
        fields.date = QDate(2024, 5, 14);
        for (const QString &printed :
             {u"2024-05-14"_s, u"14.05.2024"_s, u"14/05/24"_s, u"05/14/2024"_s, u"14 May 2024"_s,
              u"May 14, 2024"_s, u"2O24-05-14"_s, u"2024年5月14日"_s}) {
            const auto date = evidenceIn({placedLines({u"Date: "_s + printed})}, fields).date;
            QVERIFY2(date, qPrintable(printed));
        }
        QVERIFY(
            evidenceIn({placedLines({u"Summe EUR 9,50"_s, u"inkl. MwSt 19%"_s, u"14. Mai 2024"_s})}, fields)
                .date);
    }

    void countOfThingsIsNoAmount() {
        ReceiptFields fields;
        fields.amount = 5;
        QVERIFY(!evidenceIn({placedLines({u"5 items"_s, u"Total 12.50"_s})}, fields).total);
        QVERIFY(evidenceIn({placedLines({u"5 items"_s, u"Total 5.00"_s})}, fields).total);
    }

    void nameOnTwoLinesIsMarkedOnBoth() {
        ReceiptFields fields;
        fields.location = u"Restaurant Zur Post"_s;
        const auto merchant = evidenceIn({placedLines({u"RESTAURANT"_s, u"ZUR POST"_s})}, fields).merchant;
        QVERIFY(merchant);
        QCOMPARE(merchant->place, QRectF(0, 0, 0.10, 0.2));
    }

    void wordsOfTheProgramAreFoundWhereTheyArePrintedOnly() {
        ReceiptFields fields;
        fields.category = u"lunch"_s;
        fields.summary = u"Lunch at the Corner Shop"_s;
        const ReceiptEvidence evidence =
            evidenceIn({placedLines({u"Corner Shop"_s, u"Lunchbox 4.00"_s, u"1 Lunch 8.50"_s})}, fields);
        QCOMPARE(evidence.category->text, u"Lunch"_s);
        QCOMPARE(evidence.category->place.top(), 0.2);
        QVERIFY(!evidence.summary);
    }

    void findsAMisreadName() {
        ReceiptFields fields;
        fields.location = u"Corner Shop"_s;
        QCOMPARE(evidenceIn({placedLines({u"Cormer Shap"_s})}, fields).merchant->text, u"Cormer Shap"_s);
    }
};

int evidence_finder_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<EvidenceFinderTest>(argc, argv);
}
#include "evidence_finder_test.moc"
