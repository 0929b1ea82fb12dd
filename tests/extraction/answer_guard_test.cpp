#include "extraction/answer_guard.h"
#include "support/conditions.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using GeminiClient::AnswerGuard;
using GeminiClient::AnswerLimits;

namespace {

const QByteArray head = "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n";
constexpr qint64 megabyte = 1024 * 1024;

// What qCompress() makes of the bytes, as "Content-Encoding: deflate" has it: without the length before it.
QByteArray deflated(const QByteArray &bytes) {
    return qCompress(bytes).sliced(4);
}

QByteArray answerOf(const QByteArray &body, const QByteArray &moreHeaders = {}) {
    return head + moreHeaders + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

} // namespace

class AnswerGuardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        server_ = std::make_unique<QTcpServer>();
        QVERIFY(server_->listen(QHostAddress::LocalHost));
        connect(server_.get(), &QTcpServer::newConnection, this, [this] {
            socket_ = server_->nextPendingConnection();
            connect(socket_, &QTcpSocket::readyRead, socket_, [this] {
                socket_->readAll();
                socket_->write(answer_);
            });
        });
    }
    void cleanup() {
        server_.reset();
        socket_ = nullptr;
        answer_.clear();
    }

    void answerUpToTheLimitIsLetThrough_data() {
        QTest::addColumn<QByteArray>("answer");
        const QByteArray body(2 * megabyte, 'x');
        QTest::newRow("plain") << answerOf(body);
        QTest::newRow("compressed") << answerOf(deflated(body), "Content-Encoding: deflate\r\n");
        QTest::newRow("of unknown length") << head + "Connection: close\r\n\r\n" + body;
    }
    void answerUpToTheLimitIsLetThrough() {
        QFETCH(QByteArray, answer);
        answer_ = answer;
        const auto reply = request();
        const AnswerGuard guard(*reply, {.largestSize = 2 * megabyte, .longestTime = 10s});
        QVERIFY(waitUntil([&] { return reply->bytesAvailable() == 2 * megabyte; }));
        socket_->disconnectFromHost();
        QVERIFY(waitUntil([&] { return reply->isFinished(); }));
        QCOMPARE(guard.violation(), std::nullopt);
        QCOMPARE(reply->error(), QNetworkReply::NoError);
        QCOMPARE(reply->readAll(), QByteArray(2 * megabyte, 'x'));
    }

    void answerBeyondTheLimitIsEnded_data() {
        QTest::addColumn<QByteArray>("answer");
        const QByteArray body(2 * megabyte + 1, 'x');
        QTest::newRow("plain") << answerOf(body);
        QTest::newRow("compressed") << answerOf(deflated(body), "Content-Encoding: deflate\r\n");
        QTest::newRow("of unknown length") << head + "Connection: close\r\n\r\n" + body;
        QTest::newRow("announced, not sent") << answerOf(body).chopped(10);
        QTest::newRow("of an error") << answerOf(body).replace("200 OK", "500 No");
    }
    void answerBeyondTheLimitIsEnded() {
        QFETCH(QByteArray, answer);
        answer_ = answer;
        const auto reply = request();
        const AnswerGuard guard(*reply, {.largestSize = 2 * megabyte - 10, .longestTime = 10s});
        QVERIFY(waitUntil([&] { return reply->isFinished(); }));
        QCOMPARE(guard.violation(), u"The answer is larger than 1 MB."_s);
    }

    void answerThatTricklesIsEnded() {
        answer_ = head + "\r\n";
        QTimer trickle;
        connect(&trickle, &QTimer::timeout, this, [this] {
            if (socket_ != nullptr) {
                socket_->write("x");
            }
        });
        trickle.start(20ms);
        const auto reply = request();
        int pieces = 0;
        connect(reply.get(), &QNetworkReply::readyRead, this, [&pieces] { ++pieces; });
        const AnswerGuard guard(*reply, {.largestSize = megabyte, .longestTime = 500ms});
        QVERIFY(waitUntil([&] { return reply->isFinished(); }));
        QCOMPARE(guard.violation(), u"The request timed out."_s);
        QVERIFY2(pieces > 1, qPrintable(QString::number(pieces)));
    }

    void timeBeforeTheAnswerDoesNotCount() {
        const auto reply = request(); // is sent nothing yet
        const AnswerGuard guard(*reply, {.largestSize = megabyte, .longestTime = 200ms});
        letTimePass(500);
        socket_->write(answerOf("{}"));
        QVERIFY(waitUntil([&] { return reply->isFinished(); }));
        QCOMPARE(guard.violation(), std::nullopt);
        QCOMPARE(reply->readAll(), QByteArray("{}"));
    }

    void headBeyondTheLimitIsCut() {
        answer_ = head;
        const QByteArray filler = ("X-Filler: " + QByteArray(1000, 'x') + "\r\n").repeated(1000);
        connect(server_.get(), &QTcpServer::newConnection, this, [&] {
            connect(socket_, &QTcpSocket::bytesWritten, socket_, [&, socket = socket_] {
                if (socket->bytesToWrite() == 0) {
                    socket->write(filler);
                }
            });
        });
        const auto reply = request();
        const AnswerGuard guard(*reply, {.largestTransfer = 4 * megabyte});
        QVERIFY(waitUntil([&] { return reply->isFinished(); }));
        QCOMPARE(reply->error(), QNetworkReply::RemoteHostClosedError);
        QCOMPARE(reply->errorString(), u"Connection closed"_s);
        QVERIFY(waitUntil([&] { return socket_->state() == QAbstractSocket::UnconnectedState; }));
    }

    void guardMayGoWhenTheReplyEnds() {
        answer_ = answerOf(QByteArray(megabyte, 'x'));
        const auto reply = request();
        auto guard =
            std::make_unique<AnswerGuard>(*reply, AnswerLimits{.largestSize = 10, .longestTime = 10s});
        connect(reply.get(), &QNetworkReply::finished, this, [&guard] { guard.reset(); });
        QVERIFY(waitUntil([&] { return guard == nullptr; }));
    }

private:
    std::unique_ptr<QNetworkReply> request() {
        const QUrl url(u"http://127.0.0.1:%1/"_s.arg(server_->serverPort()));
        QNetworkRequest request(url);
        request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json"_ba);
        return std::unique_ptr<QNetworkReply>(manager_.post(request, QByteArray("{}")));
    }

    QNetworkAccessManager manager_;
    std::unique_ptr<QTcpServer> server_;
    QTcpSocket *socket_ = nullptr;
    QByteArray answer_;
};

int answer_guard_test(int argc, char **argv) {
    return runTest<QCoreApplication, AnswerGuardTest>(argc, argv);
}
#include "answer_guard_test.moc"
