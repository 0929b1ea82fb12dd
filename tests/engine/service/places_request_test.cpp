#include "engine/service/places_request.h"
#include "support/test_program.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

QByteArray bodyWith(const QJsonValue &values, const QString &mimeType = u"image/png"_s) {
    const QJsonObject data{{u"mimeType"_s, mimeType}, {u"data"_s, u"cGFnZQ=="_s}};
    const QJsonObject part{{u"inlineData"_s, data}};
    const QJsonObject content{{u"parts"_s, QJsonArray{part}}};
    return QJsonDocument(QJsonObject{{u"contents"_s, QJsonArray{content}}, {u"values"_s, values}}).toJson();
}

} // namespace

class PlacesRequestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesValuesAndDocument() {
        const auto request = placesRequest(bodyWith(QJsonObject{{u"date"_s, u"2024-05-01"_s},
                                                                {u"time"_s, u"12:30"_s},
                                                                {u"amount"_s, 23.5},
                                                                {u"currency"_s, u"USD"_s},
                                                                {u"location"_s, u"Mario's Cafe"_s},
                                                                {u"category"_s, u"lunch"_s},
                                                                {u"summary"_s, u"Lunch"_s}}));
        QVERIFY(request);
        QCOMPARE(request->document, "page"_ba);
        QCOMPARE(request->values.date, QDate(2024, 5, 1));
        QCOMPARE(request->values.time, QTime(12, 30));
        QCOMPARE(request->values.amount, 23.5);
        QCOMPARE(request->values.currency, u"USD"_s);
        QCOMPARE(request->values.location, u"Mario's Cafe"_s);
        QCOMPARE(request->values.category, u"lunch"_s);
        QCOMPARE(request->values.summary, u"Lunch"_s);
    }

    void valuesMayBeAbsent() {
        const auto request = placesRequest(bodyWith(QJsonObject{{u"date"_s, QJsonValue::Null}}));
        QVERIFY(request);
        QVERIFY(!request->values.date && !request->values.time && !request->values.amount &&
                !request->values.currency && !request->values.location);
        QVERIFY(request->values.category.isEmpty() && request->values.summary.isEmpty());
    }

    void refusesWhatDoesNotFit_data() {
        QTest::addColumn<QJsonValue>("values");
        QTest::newRow("none") << QJsonValue();
        QTest::newRow("no object") << QJsonValue(u"2024-05-01"_s);
        const auto row = [](const char *what, const QString &name, const QJsonValue &value) {
            QTest::newRow(what) << QJsonValue(QJsonObject{{name, value}});
        };
        row("date in words", u"date"_s, u"1 May"_s);
        row("date that does not exist", u"date"_s, u"2024-02-31"_s);
        row("time with seconds", u"time"_s, u"12:30:45"_s);
        row("amount as a text", u"amount"_s, u"23.5"_s);
        row("amount beyond measure", u"amount"_s, 1e300);
        row("name as a number", u"location"_s, 5);
        row("endless name", u"location"_s, QString(100'000, u'x'));
    }
    void refusesWhatDoesNotFit() {
        QFETCH(QJsonValue, values);
        const auto request = placesRequest(bodyWith(values));
        QVERIFY(!request);
        QCOMPARE(request.error().code, 400);
        QCOMPARE(request.error().status, u"INVALID_ARGUMENT"_s);
    }

    void refusesWhatIsNoDocument() {
        QVERIFY(!placesRequest("{"));
        QVERIFY(!placesRequest("{\"values\":{}}"));
        QVERIFY(!placesRequest(bodyWith(QJsonObject(), u"text/plain"_s)));
    }

    void answerHasPlacesMissingNamesAndPages() {
        LocatedValues located;
        located.evidence.total =
            Evidence{.page = 1, .place = QRectF(0.5, 0.25, 0.25, 0.5), .text = u"23,50"_s};
        located.evidence.category = Evidence{.page = 0, .place = QRectF(0, 0, 1, 1), .text = u"Lunch"_s};
        located.missing = {u"date"_s};
        located.pages = 2;
        const QJsonObject answer = placesAnswer(located);
        QCOMPARE(answer.keys(), QStringList({u"evidence"_s, u"missing"_s, u"pages"_s}));
        const QJsonObject evidence = answer.value("evidence"_L1).toObject();
        QCOMPARE(evidence.keys(), QStringList({u"category"_s, u"total"_s}));
        QCOMPARE(evidence.value("total"_L1).toObject().value("page"_L1).toInt(), 2);
        QCOMPARE(answer.value("missing"_L1).toArray(), QJsonArray{u"date"_s});
        QCOMPARE(answer.value("pages"_L1).toInt(), 2);
    }
};

int places_request_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<PlacesRequestTest>(argc, argv);
}
#include "places_request_test.moc"
