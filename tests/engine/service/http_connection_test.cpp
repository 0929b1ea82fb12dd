#include "engine/service/http_connection.h"
#include "support/conditions.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>

#include <memory>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class HttpConnectionTest : public QObject {
    Q_OBJECT

    static constexpr qsizetype largestBody_ = 100'000;
    static constexpr ConnectionLimits limits_{
        .largestBody = largestBody_, .headTime = 2s, .bodyTime = 2s, .answerTime = 2s};
    QTcpServer listener_;
    std::unique_ptr<QTcpSocket> caller_;
    QPointer<HttpConnection> connection_;
    std::unique_ptr<QSignalSpy> announced_;
    std::unique_ptr<QSignalSpy> received_;
    std::unique_ptr<QSignalSpy> refused_;

    QByteArray head(const QByteArray &method, const QByteArray &path, const QByteArray &more = {}) {
        return method + ' ' + path +
               " HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(listener_.serverPort()) +
               "\r\nContent-Type: application/json\r\n" + more + "\r\n";
    }

    QByteArray post(qsizetype length, const QByteArray &more = {}) {
        return head("POST", "/", "Content-Length: " + QByteArray::number(length) + "\r\n" + more);
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(listener_.listen(QHostAddress::LocalHost)); }

    void init() {
        caller_ = std::make_unique<QTcpSocket>();
        caller_->connectToHost(QHostAddress(QHostAddress::LocalHost), listener_.serverPort());
        QVERIFY(listener_.waitForNewConnection(fennick::test::patience));
        connection_ = new HttpConnection(listener_.nextPendingConnection(), limits_, this);
        announced_ = std::make_unique<QSignalSpy>(connection_, &HttpConnection::announced);
        connect(connection_, &HttpConnection::announced, connection_, &HttpConnection::takeBody);
        received_ = std::make_unique<QSignalSpy>(connection_, &HttpConnection::received);
        refused_ = std::make_unique<QSignalSpy>(connection_, &HttpConnection::refused);
        fennick::test::waitUntil([&] { return caller_->state() == QAbstractSocket::ConnectedState; });
        QCOMPARE(caller_->state(), QAbstractSocket::ConnectedState);
    }

    void cleanup() {
        caller_->abort();
        QVERIFY(fennick::test::waitUntil([&] { return connection_.isNull(); }));
    }

    void givesTheRequest() {
        caller_->write(head("POST", "/path?key=1", "Content-Length: 5\r\n") + "hello");
        fennick::test::waitUntil([&] { return received_->count() == 1; });
        QCOMPARE(received_->count(), 1);
        QCOMPARE(received_->at(0).at(0).toByteArray(), QByteArray("POST"));
        QCOMPARE(received_->at(0).at(1).toUrl().path(), u"/path"_s);
        QCOMPARE(received_->at(0).at(2).toByteArray(), QByteArray("hello"));
    }

    void putsPiecesTogether() {
        const QByteArray request = post(5) + "hello";
        for (const char byte : request) {
            caller_->write(QByteArray(1, byte));
            QVERIFY(caller_->waitForBytesWritten(fennick::test::patience));
            QCoreApplication::processEvents();
        }
        fennick::test::waitUntil([&] { return received_->count() == 1; });
        QCOMPARE(received_->count(), 1);
        QCOMPARE(received_->at(0).at(2).toByteArray(), QByteArray("hello"));
    }

    void takesTheLargestBody() {
        caller_->write(post(largestBody_) + QByteArray(largestBody_, 'x'));
        fennick::test::waitUntil([&] { return received_->count() == 1; });
        QCOMPARE(received_->count(), 1);
        QCOMPARE(received_->at(0).at(2).toByteArray().size(), largestBody_);
    }

    void refusesALargerOneAfterItsEnd() {
        caller_->write(post(largestBody_ + 1) + QByteArray(largestBody_, 'x'));
        QVERIFY(!refused_->wait(100));
        caller_->write("x");
        fennick::test::waitUntil([&] { return refused_->count() == 1; });
        QCOMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 413);
        QCOMPARE(received_->count(), 0);
    }

    void refusesAnEndlessHead() {
        caller_->write("GET / HTTP/1.1\r\nX: " + QByteArray(200'000, 'x'));
        fennick::test::waitUntil([&] { return refused_->count() == 1; });
        QCOMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 431);
    }

    void refusesNonsense() {
        caller_->write("hello\r\n\r\n");
        fennick::test::waitUntil([&] { return refused_->count() == 1; });
        QCOMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 400);
    }

    void refusesWhatAPageCouldForge() {
        caller_->write(post(5, "Origin: http://evil.example\r\n") + "hello");
        fennick::test::waitUntil([&] { return refused_->count() == 1; });
        QCOMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 403);
        QCOMPARE(announced_->count(), 0);
    }

    void refusesAtOnceWhenTheCallerWaits() {
        caller_->write(post(largestBody_ + 1, "Expect: 100-continue\r\n"));
        fennick::test::waitUntil([&] { return refused_->count() == 1; });
        QCOMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 413);
    }

    void leavesTheBodyUntilItIsWanted() {
        disconnect(connection_, &HttpConnection::announced, connection_, &HttpConnection::takeBody);
        caller_->write(post(largestBody_) + QByteArray(largestBody_, 'x'));
        fennick::test::waitUntil([&] { return announced_->count() == 1; });
        QCOMPARE(announced_->count(), 1);
        QCOMPARE(announced_->at(0).at(0).value<qsizetype>(), largestBody_);
        // The time of those who wait their turn does not run.
        QVERIFY(!received_->wait(2500));
        QVERIFY(connection_);
        connection_->takeBody();
        fennick::test::waitUntil([&] { return received_->count() == 1; });
        QCOMPARE(received_->count(), 1);
        QCOMPARE(received_->at(0).at(2).toByteArray(), QByteArray(largestBody_, 'x'));
    }

    void cutsASlowHead() {
        const QByteArray slow = head("GET", "/");
        qsizetype sent = 0;
        QTimer drip;
        connect(&drip, &QTimer::timeout, this, [&] { caller_->write(slow.mid(sent++, 1)); });
        drip.start(150ms); // each byte would renew the patience of one who only minds silence
        QVERIFY(fennick::test::waitUntil([&] { return connection_.isNull(); }));
        QVERIFY(sent > 1 && sent < slow.size());
    }

    void cutsASlowBody() {
        caller_->write(post(1000));
        QTimer drip;
        connect(&drip, &QTimer::timeout, this, [&] { caller_->write("x"); });
        drip.start(150ms);
        QVERIFY(fennick::test::waitUntil([&] { return connection_.isNull(); }));
        QCOMPARE(received_->count(), 0);
    }

    // Altogether this takes longer than the time of a body. A busy machine may hold a piece back for as long.
    void largeBodyHasItsTimeForEachShare() {
        constexpr int pieces = 5;
        const QByteArray piece(1024 * 1024, 'x');
        for (int attempt = 0; attempt < 20 && refused_->isEmpty(); ++attempt) {
            cleanup();
            init();
            caller_->write(post(pieces * piece.size()));
            for (int sent = 0; sent < pieces && !connection_.isNull(); ++sent) {
                caller_->write(piece);
                fennick::test::waitUntil([&] { return connection_.isNull(); }, 700);
            }
            fennick::test::waitUntil([&] { return !refused_->isEmpty() || connection_.isNull(); });
        }
        QCOMPARE(refused_->count(), 1);
        QCOMPARE(refused_->at(0).at(0).toInt(), 413);
    }

    void asksForTheBodyWhenTheCallerWaits() {
        caller_->write(post(5, "Expect: 100-continue\r\n"));
        fennick::test::waitUntil([&] { return caller_->bytesAvailable() == 25; });
        QCOMPARE(caller_->bytesAvailable(), 25);
        QCOMPARE(caller_->readAll(), QByteArray("HTTP/1.1 100 Continue\r\n\r\n"));
        caller_->write("hello");
        fennick::test::waitUntil([&] { return received_->count() == 1; });
        QCOMPARE(received_->count(), 1);
    }

    void answersAndCloses() {
        caller_->write(head("GET", "/"));
        fennick::test::waitUntil([&] { return received_->count() == 1; });
        QCOMPARE(received_->count(), 1);
        connection_->answer(404, "{\"a\":1}");
        fennick::test::waitUntil([&] { return caller_->state() == QAbstractSocket::UnconnectedState; });
        QCOMPARE(caller_->state(), QAbstractSocket::UnconnectedState);
        const QByteArray answer = caller_->readAll();
        QVERIFY(answer.startsWith("HTTP/1.1 404 Not Found\r\n"));
        QVERIFY(answer.contains("\r\nContent-Length: 7\r\n"));
        QVERIFY(answer.endsWith("\r\n\r\n{\"a\":1}"));
        QVERIFY(fennick::test::waitUntil([&] { return connection_.isNull(); }));
    }

    void servesOneRequestOnly() {
        caller_->write(head("GET", "/1") + head("GET", "/2"));
        fennick::test::waitUntil([&] { return received_->count() == 1; });
        QCOMPARE(received_->count(), 1);
        QVERIFY(!received_->wait(100));
        QCOMPARE(received_->at(0).at(1).toUrl().path(), u"/1"_s);
    }

    void endsWithItsCaller() {
        caller_->write(post(5) + "he");
        caller_->disconnectFromHost();
        QVERIFY(fennick::test::waitUntil([&] { return connection_.isNull(); }));
        QCOMPARE(received_->count(), 0);
    }
};

int http_connection_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, HttpConnectionTest>(argc, argv);
}
#include "http_connection_test.moc"
