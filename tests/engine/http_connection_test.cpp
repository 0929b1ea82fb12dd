#include "engine/http_connection.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>

#include <memory>

using namespace fennick;
using namespace Qt::StringLiterals;

class HttpConnectionTest : public QObject {
    Q_OBJECT

    static constexpr qsizetype m_largestBody = 100'000;
    QTcpServer m_listener;
    std::unique_ptr<QTcpSocket> m_caller;
    QPointer<HttpConnection> m_connection;
    std::unique_ptr<QSignalSpy> m_received;
    std::unique_ptr<QSignalSpy> m_refused;

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_listener.listen(QHostAddress::LocalHost)); }

    void init() {
        m_caller = std::make_unique<QTcpSocket>();
        m_caller->connectToHost(QHostAddress(QHostAddress::LocalHost), m_listener.serverPort());
        QVERIFY(m_listener.waitForNewConnection(10'000));
        m_connection = new HttpConnection(m_listener.nextPendingConnection(), m_largestBody, this);
        m_received = std::make_unique<QSignalSpy>(m_connection, &HttpConnection::received);
        m_refused = std::make_unique<QSignalSpy>(m_connection, &HttpConnection::refused);
        QTRY_COMPARE(m_caller->state(), QAbstractSocket::ConnectedState);
    }

    void cleanup() {
        m_caller->abort();
        QTRY_VERIFY(m_connection.isNull());
    }

    void givesTheRequest() {
        m_caller->write("POST /path?key=1 HTTP/1.1\r\nContent-Length: 5\r\n\r\nhello");
        QTRY_COMPARE(m_received->count(), 1);
        QCOMPARE(m_received->at(0).at(0).toByteArray(), QByteArray("POST"));
        QCOMPARE(m_received->at(0).at(1).toUrl().path(), u"/path"_s);
        QCOMPARE(m_received->at(0).at(2).toByteArray(), QByteArray("hello"));
    }

    void putsPiecesTogether() {
        const QByteArray request = "POST / HTTP/1.1\r\nContent-Length: 5\r\n\r\nhello";
        for (const char byte : request) {
            m_caller->write(QByteArray(1, byte));
            QVERIFY(m_caller->waitForBytesWritten());
            QCoreApplication::processEvents();
        }
        QTRY_COMPARE(m_received->count(), 1);
        QCOMPARE(m_received->at(0).at(2).toByteArray(), QByteArray("hello"));
    }

    void takesTheLargestBody() {
        m_caller->write("POST / HTTP/1.1\r\nContent-Length: 100000\r\n\r\n" + QByteArray(m_largestBody, 'x'));
        QTRY_COMPARE(m_received->count(), 1);
        QCOMPARE(m_received->at(0).at(2).toByteArray().size(), m_largestBody);
    }

    void refusesALargerOneAfterItsEnd() {
        m_caller->write("POST / HTTP/1.1\r\nContent-Length: 100001\r\n\r\n" + QByteArray(m_largestBody, 'x'));
        QVERIFY(!m_refused->wait(100));
        m_caller->write("x");
        QTRY_COMPARE(m_refused->count(), 1);
        QCOMPARE(m_refused->at(0).at(0).toInt(), 413);
        QCOMPARE(m_received->count(), 0);
    }

    void refusesAnEndlessHead() {
        m_caller->write("GET / HTTP/1.1\r\nX: " + QByteArray(200'000, 'x'));
        QTRY_COMPARE(m_refused->count(), 1);
        QCOMPARE(m_refused->at(0).at(0).toInt(), 431);
    }

    void refusesNonsense() {
        m_caller->write("hello\r\n\r\n");
        QTRY_COMPARE(m_refused->count(), 1);
        QCOMPARE(m_refused->at(0).at(0).toInt(), 400);
    }

    void asksForTheBodyWhenTheCallerWaits() {
        m_caller->write("POST / HTTP/1.1\r\nContent-Length: 5\r\nExpect: 100-continue\r\n\r\n");
        QTRY_COMPARE(m_caller->bytesAvailable(), 25);
        QCOMPARE(m_caller->readAll(), QByteArray("HTTP/1.1 100 Continue\r\n\r\n"));
        m_caller->write("hello");
        QTRY_COMPARE(m_received->count(), 1);
    }

    void answersAndCloses() {
        m_caller->write("GET / HTTP/1.1\r\n\r\n");
        QTRY_COMPARE(m_received->count(), 1);
        m_connection->answer(404, "{\"a\":1}");
        QTRY_COMPARE(m_caller->state(), QAbstractSocket::UnconnectedState);
        const QByteArray answer = m_caller->readAll();
        QVERIFY(answer.startsWith("HTTP/1.1 404 Not Found\r\n"));
        QVERIFY(answer.contains("\r\nContent-Length: 7\r\n"));
        QVERIFY(answer.endsWith("\r\n\r\n{\"a\":1}"));
        QTRY_VERIFY(m_connection.isNull());
    }

    void servesOneRequestOnly() {
        m_caller->write("GET /1 HTTP/1.1\r\n\r\nGET /2 HTTP/1.1\r\n\r\n");
        QTRY_COMPARE(m_received->count(), 1);
        QVERIFY(!m_received->wait(100));
        QCOMPARE(m_received->at(0).at(1).toUrl().path(), u"/1"_s);
    }

    void endsWithItsCaller() {
        m_caller->write("POST / HTTP/1.1\r\nContent-Length: 5\r\n\r\nhe");
        m_caller->disconnectFromHost();
        QTRY_VERIFY(m_connection.isNull());
        QCOMPARE(m_received->count(), 0);
    }
};

QTEST_GUILESS_MAIN(HttpConnectionTest)
#include "http_connection_test.moc"
