#include "engine/sample_table.h"
#include "engine/service/value_locator.h"
#include "support/test_program.h"

#include <QCoreApplication>

using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

const QString sample = u"invoice.pdf"_s;

ReceiptFields valuesOfSample() {
    ReceiptFields values;
    values.date = QDate(2024, 3, 9);
    values.amount = 486.4;
    values.currency = u"CHF"_s;
    values.location = u"Hotel Lindenhof"_s;
    return values;
}

// A page whose text, or whose picture, is this.
PdfReading pagesWith(const QStringList &texts, bool isPicture = false) {
    return [texts, isPicture](const QByteArray &, const fennick::PdfUse &,
                              const std::stop_token &) -> std::expected<QList<PdfPage>, ReadError> {
        PdfPage page;
        for (qsizetype index = 0; index < texts.size(); ++index) {
            const double top = static_cast<double>(index) / 10;
            page.lines.append({.text = texts[index],
                               .box = QRectF(0, 100 * top, 100, 10),
                               .pieces = {{0, texts[index].size(), QRectF(0, top, 0.5, 0.1)}}});
        }
        if (isPicture) {
            page.picture = QImage(600, 800, QImage::Format_Grayscale8);
            page.picture.fill(Qt::white);
        }
        return QList<PdfPage>{page, PdfPage()};
    };
}

std::expected<LocatedValues, ReadError> locateOn(const ReceiptFields &values, const PdfReading &pages) {
    return locateValues("%PDF-1.7", values, {}, pages);
}

const QStringList receipt = {u"Corner Shop"_s, u"04/05/2024 14:32"_s, u"Total GBP 12.50"_s};

} // namespace

class ValueLocatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTheValuesOfASample() {
        const auto located = locateValues(sampleBytes(sample), valuesOfSample());
        QVERIFY(located);
        QVERIFY(located->evidence.date && located->evidence.total && located->evidence.currency &&
                located->evidence.merchant);
        QVERIFY(located->missing.isEmpty());
        QCOMPARE(located->pages, 1);
    }

    void wrongValuesOfASampleAreMissing() {
        ReceiptFields values = valuesOfSample();
        values.date = QDate(2023, 12, 24);
        values.amount = 999.99;
        values.currency = u"JPY"_s;
        const auto located = locateValues(sampleBytes(sample), values);
        QVERIFY(located);
        QVERIFY(located->evidence.merchant);
        QCOMPARE(located->missing, QStringList({u"date"_s, u"total"_s, u"currency"_s}));
    }

    void readsThePagesAsTheProgramShowsThem() {
        fennick::PdfUse asked;
        const auto pages = [&asked](const QByteArray &, const fennick::PdfUse &use,
                                    const std::stop_token &) -> std::expected<QList<PdfPage>, ReadError> {
            asked = use;
            return QList<PdfPage>();
        };
        std::ignore = locateOn({}, pages);
        QVERIFY(asked.wholeMediaBoxes);
        QVERIFY(asked.annotations);
        QCOMPARE(asked.pageLimit, 5);
    }

    void wordsOfTheProgramAreNeverMissing() {
        ReceiptFields values;
        values.category = u"groceries"_s;
        values.summary = u"Groceries at the Corner Shop"_s;
        values.time = QTime(14, 33);
        const auto located = locateOn(values, pagesWith(receipt));
        QVERIFY(located);
        QCOMPARE(located->missing, QStringList{u"time"_s});
        QCOMPARE(located->pages, 2);
    }

    void nothingIsMissingOnAPageThatIsNotLegible() {
        ReceiptFields values;
        values.time = QTime(14, 33);
        QVERIFY(locateOn(values, pagesWith({u"C"_s}))->missing.isEmpty());
        const auto blank = locateOn(values, pagesWith({}, true));
        QVERIFY(!blank || blank->missing.isEmpty());
    }

    void documentThatCannotBeReadIsAnError() {
        QCOMPARE(locateValues("no picture", {}).error(), ReadError::unreadableImage);
        std::stop_source stop;
        stop.request_stop();
        QCOMPARE(locateValues(sampleBytes(sample), {}, stop.get_token()).error(), ReadError::abandoned);
    }
};

int value_locator_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, ValueLocatorTest>(argc, argv);
}
#include "value_locator_test.moc"
