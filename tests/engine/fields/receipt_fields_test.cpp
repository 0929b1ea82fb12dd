#include "engine/engine_lines.h"
#include "engine/fields/receipt_fields.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

ReceiptFields fieldsIn(const QList<Reading> &readings, QDate today) {
    return readReceipt(factOfEach(readings, &factsOf), today).value_or(ReceiptFields{});
}

} // namespace

class ReceiptFieldsTest : public QObject {
    Q_OBJECT

    const QDate today_ = QDate(2025, 6, 15);

private Q_SLOTS:
    void readsAWholeReceipt() {
        const ReceiptFields fields = fieldsIn(
            {linesOf({u"Mario's Trattoria"_s, u"12 High Street, Columbus, OH 43215"_s,
                      u"03/04/2024 12:30 PM"_s, u"Pasta  18.00"_s, u"Wine  5.50"_s, u"Total  $23.50"_s})},
            today_);
        QCOMPARE(fields.date, std::optional(QDate(2024, 3, 4)));
        QCOMPARE(fields.time, std::optional(QTime(12, 30)));
        QCOMPARE(fields.amount, std::optional(23.5));
        QCOMPARE(fields.currency, std::optional(u"USD"_s));
        QCOMPARE(fields.location, std::optional(u"Mario's Trattoria"_s));
        QCOMPARE(fields.category, u"lunch"_s);
        QCOMPARE(fields.summary, u"Lunch at Mario's Trattoria for $23.50"_s);
    }

    void readsTheDayFirstOutsideNorthAmerica() {
        QCOMPARE(fieldsIn({linesOf({u"Shop"_s, u"03/04/2024"_s, u"Total £5.00"_s})}, today_).date,
                 std::optional(QDate(2024, 4, 3)));
        QCOMPARE(fieldsIn({linesOf({u"Shop"_s, u"03/04/2024"_s, u"Total CAD 5.00"_s})}, today_).date,
                 std::optional(QDate(2024, 3, 4)));
    }

    void signOfDollarsByItselfIsNoReasonToReadTheMonthFirst() {
        const ReceiptFields fields =
            fieldsIn({linesOf({u"Shop"_s, u"03/04/2024"_s, u"Total $5.00"_s})}, today_);
        QCOMPARE(fields.date, std::optional(QDate(2024, 4, 3)));
        QCOMPARE(fields.currency, std::nullopt);
    }

    void countriesHadOtherCurrenciesBefore() {
        const auto currencyOn = [this](const QString &date) {
            return fieldsIn(
                       {linesOf({u"Knjižara Lipa"_s, u"Ilica 5, 10000 Zagreb"_s, date, u"UKUPNO 75,00"_s})},
                       today_)
                .currency;
        };
        QCOMPARE(currencyOn(u"31.12.2022"_s), std::optional(u"HRK"_s));
        QCOMPARE(currencyOn(u"01.01.2023"_s), std::optional(u"EUR"_s));
    }

    void readingsShareTheCurrencysDecimals() {
        const Reading whole = linesOf({u"Sidra Cafe"_s, u"Kuwait City, Kuwait"_s, u"12/03/2024"_s,
                                       u"Tea 1.250"_s, u"Cake 2.000"_s, u"Total KWD 3.250"_s});
        const Reading part =
            linesOf({u"Sidra Cafe"_s, u"12/03/2024"_s, u"Tea 1.250"_s, u"Cake 2.000"_s, u"Total 3.250"_s});
        const ReceiptFields fields = fieldsIn({part, whole, part, whole}, today_);
        QCOMPARE(fields.currency, std::optional(u"KWD"_s));
        QCOMPARE(fields.amount, std::optional(3.25));
    }

    void takesNoCurrencyFromAStrayReading() {
        const Reading plain = linesOf({u"Shop"_s, u"12/03/2024"_s, u"Total 5.00"_s});
        const Reading stray = linesOf({u"Shop"_s, u"12/03/2024"_s, u"Total €5.00"_s});
        const ReceiptFields fields = fieldsIn({plain, plain, stray, plain, plain, plain}, today_);
        QCOMPARE(fields.currency, std::nullopt);
        QCOMPARE(fields.date, std::optional(QDate(2024, 3, 12)));
        const Reading other = linesOf({u"Shop"_s, u"12/03/2024"_s, u"Total €5.00"_s});
        QCOMPARE(fieldsIn({plain, other}, today_).currency, std::optional(u"EUR"_s));
    }

    void aLetterIsNoReceipt() {
        for (const QList<TextLine> &lines :
             {linesOf({u"Dear Anna"_s, u"See you at the market, 9:30 sharp."_s}), QList<TextLine>()}) {
            QVERIFY(!readReceipt({factsOf(lines)}, today_));
        }
    }

    void knowsWhenFurtherLooksAreInVain() {
        const auto isInVain = [this](const QList<Reading> &readings) {
            return showNothing(factOfEach(readings, &factsOf), today_);
        };
        const Reading texture = linesOf({u"~ ,_ ; |"_s, u"= - 7 ."_s});
        QVERIFY(isInVain({texture, texture}));
        QVERIFY(isInVain({{}, {}}));
        for (const QString &line :
             {u"Tea 2.50"_s, u"12.05.2024"_s, u"+49 30 1234567"_s, u"Rückgeld Zwischensumme"_s}) {
            QVERIFY2(!isInVain({texture, linesOf({line})}), qPrintable(line));
        }
    }

    void theNameOfACompanyAloneMakesAReceipt() {
        const auto fields = readReceipt({factsOf(linesOf({u"Harbour Hardware Ltd"_s, u"Nails"_s}))}, today_);
        QVERIFY(fields);
        QCOMPARE(fields->location, std::optional(u"Harbour Hardware Ltd"_s));
        QVERIFY(!fields->date && !fields->amount);
    }
};

int receipt_fields_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<ReceiptFieldsTest>(argc, argv);
}
#include "receipt_fields_test.moc"
