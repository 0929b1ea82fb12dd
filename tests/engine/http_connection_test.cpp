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

    static constexpr qsizetype largestBody_ = 100'000;
    QTcpServer listener_;
    std::unique_ptr<QTcpSocket> caller_;
    QPointer<HttpConnection> connection_;
    std::unique_ptr<QSignalSpy> received_;
    std::unique_ptr<QSignalSpy> refused_;

private Q_SLOTS:
    void initTestCase() { QVERIFY(listener_.listen(QHostAddress::LocalHost)); }

    void init() {
        caller_ = std::make_unique<QTcpSocket>();
        caller_->connectToHost(QHostAddress(QHostAddress::LocalHost), listener_.serverPort());
        QVERIFY(listener_.waitForNewConnection(10'000));
        connection_ = new HttpConnection(listener_.nextPendingConnection(), largestBody_, this);
        received_ = std::make_unique<QSignalSpy>(connection_, &HttpConnection::received);
        refused_ = std::make_unique<QSignalSpy>(connection_, &HttpConnection::refused);
        QTRY_COMPARE(caller_->state(), QAbstractSocket::ConnectedState);
    }

    void cleanup() {
        caller_->abort();
        QTRY_VERIFY(connection_.isNull());
    }

    void givesTheRequest() {
        caller_->write("POST /path?key=1 HTTP/1.1\r\nContent-Length: 5\r\n\r\nhello");
        QTRY_COMPARE(received_->count(), 1);
        QCOMPARE(received_->at(0).at(0).toByteArray(), QByteArray("POST"));
        QCOMPARE(received_->at(0).at(1).toUrl().path(), u"/path"_s);
        QCOMPARE(received_->at(0).at(2).toByteArray(), QByteArray("hello"));
    }

    void putsPiecesTogether() {
        const QByteArray request = "POST / HTTP/1.1\r\nContent-Length: 5\r\n\r\nhello";
        for (const char byte : request) {
            caller_->write(QByteArray(1, byte));
            QVERIFY(caller_->waitForBytesWritten());
            QCoreApplication::processEvents();
        }
        QTRY_COMPARE(received_->count(), 1);
        QCOMPARE(received_->at(0).at(2).toByteArray(), QByteArray("hello"));
    }

    void takesTheLargestBody() {
        caller_->write("POST / HTTP/1.1\r\nContent-Length: 100000\r\n\r\n" + QByteArray(largestBody_, 'x'));
        QTRY_COMPARE(received_->count(), 1);
        QCOMPARE(received_->at(0).at(2).toByteArray().size(), largestBody_);
    }

    void refusesALargerOneAfterItsEnd() {
        caller_->write("POST / HTTP/1.1\r\nContent-Length: 100001\r\n\r\n" + QByteArray(largestBody_, 'x'));
        QVERIFY(!refused_->wait(100));
        caller_->write("x");
        QTRY_COMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 413);
        QCOMPARE(received_->count(), 0);
    }

    void refusesAnEndlessHead() {
        caller_->write("GET / HTTP/1.1\r\nX: " + QByteArray(200'000, 'x'));
        QTRY_COMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 431);
    }

    void refusesNonsense() {
        caller_->write("hello\r\n\r\n");
        QTRY_COMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 400);
    }

    void asksForTheBodyWhenTheCallerWaits() {
        caller_->write("POST / HTTP/1.1\r\nContent-Length: 5\r\nExpect: 100-continue\r\n\r\n");
        QTRY_COMPARE(caller_->bytesAvailable(), 25);
        QCOMPARE(caller_->readAll(), QByteArray("HTTP/1.1 100 Continue\r\n\r\n"));
        caller_->write("hello");
        QTRY_COMPARE(received_->count(), 1);
    }

    void answersAndCloses() {
        caller_->write("GET / HTTP/1.1\r\n\r\n");
        QTRY_COMPARE(received_->count(), 1);
        connection_->answer(404, "{\"a\":1}");
        QTRY_COMPARE(caller_->state(), QAbstractSocket::UnconnectedState);
        const QByteArray answer = caller_->readAll();
        QVERIFY(answer.startsWith("HTTP/1.1 404 Not Found\r\n"));
        QVERIFY(answer.contains("\r\nContent-Length: 7\r\n"));
        QVERIFY(answer.endsWith("\r\n\r\n{\"a\":1}"));
        QTRY_VERIFY(connection_.isNull());
    }

    void servesOneRequestOnly() {
        caller_->write("GET /1 HTTP/1.1\r\n\r\nGET /2 HTTP/1.1\r\n\r\n");
        QTRY_COMPARE(received_->count(), 1);
        QVERIFY(!received_->wait(100));
        QCOMPARE(received_->at(0).at(1).toUrl().path(), u"/1"_s);
    }

    void endsWithItsCaller() {
        caller_->write("POST / HTTP/1.1\r\nContent-Length: 5\r\n\r\nhe");
        caller_->disconnectFromHost();
        QTRY_VERIFY(connection_.isNull());
        QCOMPARE(received_->count(), 0);
    }
};

QTEST_GUILESS_MAIN(HttpConnectionTest)
#include "http_connection_test.moc"
