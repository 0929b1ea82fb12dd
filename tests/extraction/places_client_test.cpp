#include "extraction/on_device_engine.h"
#include "extraction/places_client.h"
#include "support/conditions.h"
#include "support/scripted_server.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

const QString sample = QString::fromUtf8(FENNICK_SOURCE_DIR "/samples/receipts/ticket.pdf");

struct Search {
    bool isOver = false;
    std::optional<ValuePlaces> places;
    std::stop_source stop;
    std::stop_source engineEnd;
};

QCoro::Task<> find(QByteArray body, QString address, std::shared_ptr<Search> search) {
    search->places =
        co_await PlacesClient::find(body, address, search->engineEnd.get_token(), search->stop.get_token());
    search->isOver = true;
}

std::shared_ptr<Search> startSearch(const QByteArray &body, const QString &address) {
    auto search = std::make_shared<Search>();
    find(body, address, search);
    return search;
}

QCoro::Task<> findByEngine(OnDeviceEngine *engine, QByteArray body, std::shared_ptr<Search> search) {
    const auto use = co_await engine->use();
    search->places =
        co_await PlacesClient::find(body, engine->address(), engine->engineEnd(), search->stop.get_token());
    search->isOver = true;
}

ScriptedServer::Script replyingWith(int status, const QByteArray &body) {
    HttpReply reply;
    reply.status = status;
    reply.body = body;
    return [reply](const HttpRequest &) {
        return reply;
    };
}

ScriptedServer::Script hanging() {
    HttpReply reply;
    reply.fault = HttpReply::Fault::hang;
    return [reply](const HttpRequest &) {
        return reply;
    };
}

GeminiReceiptData valuesOfSample() {
    GeminiReceiptData values;
    values.date = u"2024-05-05"_s;
    values.time = u"09:10"_s;
    values.amount = 18.6;
    values.currency = u"EUR"_s;
    values.location = u"AUBERGE DU MARRONNIER, Strasbourg"_s;
    values.category = u"breakfast"_s;
    values.summary = u"Breakfast at Auberge du Marronnier"_s;
    return values;
}

QJsonObject valuesIn(const std::expected<QByteArray, FileProblem> &body) {
    return body ? QJsonDocument::fromJson(*body).object().value("values"_L1).toObject() : QJsonObject();
}

} // namespace

class PlacesClientTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void engineFindsTheValuesOfASample() {
        OnDeviceEngine engine(QString::fromUtf8(FENNICK_BIN_DIR "/fennick-engine"));
        GeminiReceiptData values = valuesOfSample();
        values.time = u"23:59"_s;
        const auto body = PlacesClient::requestBody(sample, values);
        QVERIFY(body);
        const auto search = std::make_shared<Search>();
        findByEngine(&engine, *body, search);
        QVERIFY(waitUntil([&] { return search->isOver; }));
        QVERIFY(search->places);
        QCOMPARE(search->places->pages, 1);
        QCOMPARE(search->places->missing, QStringList{u"time"_s});
        for (const QString &name : {u"date"_s, u"total"_s, u"currency"_s, u"merchant"_s}) {
            QVERIFY2(search->places->found.contains(name), qPrintable(name));
        }
        QVERIFY(search->places->found.value(u"merchant"_s).area.top() <
                search->places->found.value(u"total"_s).area.top());
    }

    void requestHasValuesAndDocumentButNoKey() {
        ScriptedServer server(replyingWith(200, R"({"evidence":{},"missing":["date"],"pages":1})"));
        const TemporaryHome home;
        const QString path = home.path(u"a.png"_s);
        writeFile(path, "a receipt");
        const auto body = PlacesClient::requestBody(path, valuesOfSample());
        QVERIFY(body);
        const auto search = startSearch(*body, server.address());
        QVERIFY(waitUntil([&] { return search->isOver; }));
        QCOMPARE(search->places->missing, QStringList{u"date"_s});
        QCOMPARE(server.requests().size(), 1);
        const HttpRequest &request = server.requests().first();
        QCOMPARE(request.method, "POST"_ba);
        QCOMPARE(request.target, "/fennick/v1/places"_ba);
        QCOMPARE(request.headers.value("content-type"), "application/json"_ba);
        QVERIFY(!request.headers.contains("x-goog-api-key") && !request.headers.contains("authorization"));
        QVERIFY(request.body.contains("\"data\":\"" + "a receipt"_ba.toBase64() + '"'));
        const QJsonObject expected{{u"date"_s, u"2024-05-05"_s},
                                   {u"time"_s, u"09:10"_s},
                                   {u"amount"_s, 18.6},
                                   {u"currency"_s, u"EUR"_s},
                                   {u"location"_s, u"AUBERGE DU MARRONNIER, Strasbourg"_s},
                                   {u"category"_s, u"breakfast"_s},
                                   {u"summary"_s, u"Breakfast at Auberge du Marronnier"_s}};
        QCOMPARE(valuesIn(request.body), expected);
    }

    void valuesThatTheEngineWouldRefuseAreLeftOut() {
        GeminiReceiptData values;
        values.date = u"2024-13-45"_s;
        values.time = u"99:99"_s;
        values.amount = 1e300;
        values.location = QString(100'000, u'x');
        const QJsonObject sent = valuesIn(PlacesClient::requestBody(sample, values));
        QCOMPARE(sent.keys(), QStringList({u"category"_s, u"location"_s, u"summary"_s}));
        QVERIFY(sent.value("location"_L1).toString().size() < 1000);
    }

    void fileThatCannotBeReadIsAProblem() { QVERIFY(!PlacesClient::requestBody(u"/nowhere/a.png"_s, {})); }

    void stopEndsTheRequest() {
        ScriptedServer server(hanging());
        const auto search = startSearch("{}", server.address());
        QVERIFY(waitUntil([&] { return !server.requests().isEmpty(); }));
        QVERIFY(!search->isOver);
        search->stop.request_stop();
        QVERIFY(waitUntil([&] { return search->isOver; }));
        QVERIFY(!search->places);
    }

    void endOfTheEngineEndsTheRequest() {
        ScriptedServer server(hanging());
        const auto search = startSearch("{}", server.address());
        QVERIFY(waitUntil([&] { return !server.requests().isEmpty(); }));
        search->engineEnd.request_stop();
        QVERIFY(waitUntil([&] { return search->isOver; }));
        QVERIFY(!search->places);
    }

    void answersThatAreNoneSayNothing_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("refused") << 400 << QByteArray(R"({"evidence":{},"missing":["date"],"pages":1})");
        QTest::newRow("no JSON") << 200 << QByteArray("hello");
        QTest::newRow("nothing") << 200 << QByteArray();
        QTest::newRow("another engine") << 200 << QByteArray(R"({"candidates":[]})");
    }
    void answersThatAreNoneSayNothing() {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        ScriptedServer server(replyingWith(status, body));
        const auto search = startSearch("{}", server.address());
        QVERIFY(waitUntil([&] { return search->isOver; }));
        QVERIFY(!search->places);
    }

    void placesOffThePageAreDropped() {
        const auto places = PlacesClient::readAnswer(R"({"pages": 2, "missing": [], "evidence": {
            "total": {"page": 2, "x": 0.5, "y": 0.25, "width": 0.25, "height": 0.125, "text": "18,60"},
            "date": {"page": 0, "x": 0, "y": 0, "width": 1, "height": 1},
            "time": {"page": 1, "x": -1, "y": 0, "width": 1, "height": 1},
            "currency": {"page": 1, "x": 0.9, "y": 0.9, "width": 5, "height": 5},
            "merchant": {"page": 1, "x": 0.9, "y": 0.9},
            "category": "lunch"}})");
        QVERIFY(places);
        QCOMPARE(places->pages, 2);
        QCOMPARE(places->found.size(), 2);
        QCOMPARE(places->found.value(u"total"_s), (PlaceOnPage{1, QRectF(0.5, 0.25, 0.25, 0.125)}));
        QVERIFY(places->found.value(u"currency"_s).area.right() <= 1.0001);
    }
};

int places_client_test(int argc, char **argv) {
    return runTest<QCoreApplication, PlacesClientTest>(argc, argv);
}
#include "places_client_test.moc"
