#include "engine/service/http_head.h"
#include "support/test_program.h"

#include <QUrlQuery>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

class HttpHeadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesARequestApart() {
        const auto head = parsedHead("POST /v1beta/models/m:generateContent?key=a%20b HTTP/1.1\r\nHost: x\r\n"
                                     "Origin: null\r\nContent-Type: application/json\r\n"
                                     "content-LENGTH:  12 \r\nExpect: 100-continue");
        QVERIFY(head);
        QCOMPARE(head->method, QByteArray("POST"));
        QCOMPARE(head->target.path(), u"/v1beta/models/m:generateContent"_s);
        QCOMPARE(QUrlQuery(head->target).queryItemValue(u"key"_s, QUrl::FullyDecoded), u"a b"_s);
        QCOMPARE(head->host, QByteArray("x"));
        QCOMPARE(head->origin.value_or("none"), QByteArray("null"));
        QCOMPARE(head->contentType, QByteArray("application/json"));
        QCOMPARE(head->contentLength, 12);
        QVERIFY(head->expectsContinue);
    }

    void takesARequestThatSaysNoMore() {
        const auto head = parsedHead("GET / HTTP/1.0\r\nHost:");
        QVERIFY(head);
        QVERIFY(head->host.isEmpty());
        QVERIFY(!head->origin);
        QCOMPARE(head->contentLength, 0);
        QVERIFY(!head->expectsContinue);
    }

    void refuses_data() {
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<int>("status");
        QTest::newRow("empty") << QByteArray() << 400;
        QTest::newRow("two words") << QByteArray("GET /") << 400;
        QTest::newRow("four words") << QByteArray("GET / x HTTP/1.1") << 400;
        QTest::newRow("no path") << QByteArray("GET http://x/ HTTP/1.1") << 400;
        QTest::newRow("another protocol") << QByteArray("GET / RTSP/1.0") << 400;
        QTest::newRow("another version") << QByteArray("GET / HTTP/2.0") << 505;
        QTest::newRow("no host") << QByteArray("GET / HTTP/1.1\r\nAccept: x") << 400;
        QTest::newRow("two hosts") << QByteArray("GET / HTTP/1.1\r\nHost: x\r\nHost: x") << 400;
        QTest::newRow("two origins") << QByteArray("GET / HTTP/1.1\r\nHost: x\r\nOrigin: x\r\norigin: y")
                                     << 400;
        QTest::newRow("two types") << QByteArray(
                                          "POST / HTTP/1.1\r\nHost: x\r\nContent-Type: x\r\nContent-Type: y")
                                   << 400;
        QTest::newRow("no colon") << QByteArray("GET / HTTP/1.1\r\nHost: x\r\nAccept") << 400;
        QTest::newRow("no name") << QByteArray("GET / HTTP/1.1\r\nHost: x\r\n: x") << 400;
        QTest::newRow("blank before the colon")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nContent-Length : 5") << 400;
        QTest::newRow("folded line") << QByteArray(
                                            "POST / HTTP/1.1\r\nHost: x\r\nAccept: x\r\n Content-Length: 5")
                                     << 400;
        QTest::newRow("carriage return in a value")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\rContent-Length: 5") << 400;
        QTest::newRow("negative length")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: -1") << 400;
        QTest::newRow("signed length")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: +1") << 400;
        QTest::newRow("length beyond numbers")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: 99999999999999999999") << 400;
        QTest::newRow("two lengths")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: 1\r\nContent-Length: 2") << 400;
        QTest::newRow("chunks") << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked")
                                << 411;
        QTest::newRow("packed") << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: gzip") << 501;
    }
    void refuses() {
        QFETCH(QByteArray, head);
        QFETCH(int, status);
        const auto parsed = parsedHead(head);
        QVERIFY(!parsed);
        QCOMPARE(parsed.error(), status);
    }
};

int http_head_test(int argc, char **argv) {
    return fennick::test::runTestWithoutApplication<HttpHeadTest>(argc, argv);
}
#include "http_head_test.moc"
