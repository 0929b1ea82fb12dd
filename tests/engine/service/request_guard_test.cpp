#include "engine/service/request_guard.h"
#include "support/test_program.h"

using namespace fennick;
using namespace fennick::engine;

class RequestGuardTest : public QObject {
    Q_OBJECT

    static constexpr quint16 port_ = 4711;

    static HttpHead post(const QByteArray &host) {
        return {.method = "POST", .target = {}, .host = host, .contentType = "application/json"};
    }

private Q_SLOTS:
    void knowsItsOwnNames_data() {
        QTest::addColumn<QByteArray>("host");
        QTest::addColumn<quint16>("port");
        QTest::newRow("address") << QByteArray("127.0.0.1:4711") << port_;
        QTest::newRow("name") << QByteArray("LocalHost:4711") << port_;
        QTest::newRow("IPv6") << QByteArray("[::1]:4711") << port_;
        QTest::newRow("port of http, not said") << QByteArray("localhost") << quint16{80};
        QTest::newRow("port of http, said") << QByteArray("127.0.0.1:80") << quint16{80};
    }
    void knowsItsOwnNames() {
        QFETCH(QByteArray, host);
        QFETCH(quint16, port);
        QVERIFY(!refusalOf(post(host), port));
    }

    void refusesOtherNames_data() {
        QTest::addColumn<QByteArray>("host");
        for (const QByteArray host :
             {"", "127.0.0.1", "localhost", "localhost:", "localhost:4712", "evil.example:4711",
              "127.0.0.1.evil.example:4711", "evil.localhost:4711", "127.0.0.1:4711@evil.example",
              "evil.example@127.0.0.1:4711", "127.0.0.1:04711", "127.0.0.1:4711 ", "0.0.0.0:4711", "::1:4711",
              "127.1:4711", "localhost.:4711"})
            QTest::addRow("'%s'", host.constData()) << host;
    }
    void refusesOtherNames() {
        QFETCH(QByteArray, host);
        QCOMPARE(refusalOf(post(host), port_).value_or(0), 403);
    }

    void refusesPagesOfOthers_data() {
        QTest::addColumn<QByteArray>("origin");
        for (const QByteArray origin :
             {"", "null", "http://evil.example", "https://127.0.0.1:4711", "http://127.0.0.1",
              "http://127.0.0.1:3000", "http://localhost:4711", "http://127.0.0.1:4711.evil.example",
              "file://", "chrome-extension://abc"})
            QTest::addRow("'%s'", origin.constData()) << origin;
    }
    void refusesPagesOfOthers() {
        QFETCH(QByteArray, origin);
        for (const QByteArray method : {"POST", "GET", "OPTIONS"}) {
            HttpHead head = post("127.0.0.1:4711");
            head.method = method;
            head.origin = origin;
            QCOMPARE(refusalOf(head, port_).value_or(0), 403);
        }
    }

    void servesItsOwnOrigin() {
        HttpHead head = post("localhost:4711");
        head.origin = "http://localhost:4711";
        QVERIFY(!refusalOf(head, port_));
    }

    void wantsJson_data() {
        QTest::addColumn<QByteArray>("contentType");
        QTest::addColumn<int>("status");
        QTest::newRow("JSON") << QByteArray("application/json") << 0;
        QTest::newRow("with a parameter") << QByteArray("Application/JSON ; charset=utf-8") << 0;
        for (const QByteArray type :
             {"", "text/plain", "application/x-www-form-urlencoded", "multipart/form-data; boundary=x",
              "text/plain; application/json", "application/jsonp", "application/json, text/plain"})
            QTest::addRow("'%s'", type.constData()) << type << 415;
    }
    void wantsJson() {
        QFETCH(QByteArray, contentType);
        QFETCH(int, status);
        HttpHead head = post("127.0.0.1:4711");
        head.contentType = contentType;
        QCOMPARE(refusalOf(head, port_).value_or(0), status);
    }
};

int request_guard_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<RequestGuardTest>(argc, argv);
}
#include "request_guard_test.moc"
