#include "engine/engine_process.h"
#include "engine/sample_table.h"
#include "support/conditions.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTcpSocket>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <memory>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;

namespace {

constexpr uid_t somebodyElse = 65534;

void become(QProcess &process, uid_t user) {
    process.setChildProcessModifier([user] {
        if (::setuid(user) != 0) {
            ::_exit(1);
        }
    });
}

} // namespace

// What a page in the user's browser could make it send to the built program.
class ProgramGuardTest : public QObject {
    Q_OBJECT

    std::unique_ptr<EngineProcess> engine_;
    QByteArray body_;

    QByteArray ownHost() const { return "Host: 127.0.0.1:" + QByteArray::number(engine_->port()) + "\r\n"; }

    QByteArray answerTo(const QByteArray &method, const QByteArray &headers) const {
        return engine_->rawAnswerTo(method + ' ' + engine_->generatePath().toUtf8() + " HTTP/1.1\r\n" +
                                    headers + "Content-Length: " + QByteArray::number(body_.size()) +
                                    "\r\n\r\n" + body_);
    }

    // The answer that a program of that user gets.
    QByteArray answerOfUser(uid_t user, const QByteArray &request) const {
        QProcess caller;
        become(caller, user);
        caller.start(u"/bin/bash"_s,
                     {u"-c"_s, u"exec 3<>/dev/tcp/127.0.0.1/%1; cat >&3; cat <&3"_s.arg(engine_->port())});
        caller.write(request);
        caller.closeWriteChannel();
        caller.waitForFinished(fennick::test::patience);
        return caller.readAllStandardOutput();
    }

private Q_SLOTS:
    void initTestCase() {
        engine_ = std::make_unique<EngineProcess>();
        QVERIFY(engine_->isRunning());
        body_ = requestFor(sampleBytes(u"invoice.pdf"_s), u"application/pdf"_s);
    }

    void cleanup() { QVERIFY(engine_->isRunning()); }

    void answersPrograms() {
        for (const QByteArray name : {"127.0.0.1", "localhost", "[::1]"}) {
            const QByteArray host = name + ':' + QByteArray::number(engine_->port());
            const QByteArray json = "Content-Type: application/json; charset=utf-8\r\n";
            QVERIFY(answerTo("POST", "Host: " + host + "\r\n" + json).startsWith("HTTP/1.1 200 OK\r\n"));
            QVERIFY(answerTo("POST", "Host: " + host + "\r\nOrigin: http://" + host + "\r\n" + json)
                        .startsWith("HTTP/1.1 200 OK\r\n"));
        }
    }

    void refuses_data() {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("headers");
        QTest::addColumn<int>("status");
        const QByteArray json = "Content-Type: application/json\r\n";
        const QByteArray port = QByteArray::number(engine_->port());
        QTest::newRow("name pointed here")
            << QByteArray("POST") << "Host: evil.example:" + port + "\r\n" + json << 403;
        QTest::newRow("wrong port") << QByteArray("POST") << "Host: 127.0.0.1:1\r\n" + json << 403;
        QTest::newRow("no port") << QByteArray("POST") << "Host: 127.0.0.1\r\n" + json << 403;
        QTest::newRow("no host") << QByteArray("POST") << json << 400;
        QTest::newRow("two hosts") << QByteArray("POST") << ownHost() + ownHost() + json << 400;
        QTest::newRow("other site") << QByteArray("POST")
                                    << ownHost() + "Origin: http://evil.example\r\n" + json << 403;
        QTest::newRow("other server here")
            << QByteArray("POST") << ownHost() + "Origin: http://127.0.0.1:3000\r\n" + json << 403;
        QTest::newRow("sandboxed page") << QByteArray("POST") << ownHost() + "Origin: null\r\n" + json << 403;
        QTest::newRow("plain text") << QByteArray("POST") << ownHost() + "Content-Type: text/plain\r\n"
                                    << 415;
        QTest::newRow("form") << QByteArray("POST")
                              << ownHost() + "Content-Type: application/x-www-form-urlencoded\r\n"
                              << 415;
        QTest::newRow("no type") << QByteArray("POST") << ownHost() << 415;
        QTest::newRow("question from another site")
            << QByteArray("OPTIONS")
            << ownHost() + "Origin: http://evil.example\r\nAccess-Control-Request-Method: POST\r\n"
                           "Access-Control-Request-Headers: content-type\r\n"
            << 403;
        QTest::newRow("question") << QByteArray("OPTIONS") << ownHost() << 404;
    }
    void refuses() {
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, headers);
        QFETCH(int, status);
        const QByteArray answer = answerTo(method, headers);
        QVERIFY2(answer.startsWith("HTTP/1.1 " + QByteArray::number(status)), answer.constData());
        const QJsonObject error = bodyOf(answer).value("error"_L1).toObject();
        QCOMPARE(error.value("code"_L1).toInt(), status);
        QVERIFY(!error.value("message"_L1).toString().isEmpty());
        const QString expected = status == 403   ? u"PERMISSION_DENIED"_s
                                 : status == 404 ? u"NOT_FOUND"_s
                                                 : u"INVALID_ARGUMENT"_s;
        QCOMPARE(error.value("status"_L1).toString(), expected);
    }

    void answersItsOwnUserOnly() {
        if (::geteuid() != 0) {
            QSKIP("Only root can be another user.");
        }
        const QByteArray request =
            "POST " + engine_->generatePath().toUtf8() + " HTTP/1.1\r\n" + ownHost() +
            "Content-Type: application/json\r\nContent-Length: " + QByteArray::number(body_.size()) +
            "\r\n\r\n" + body_;
        const QByteArray own = answerOfUser(::geteuid(), request);
        QVERIFY2(own.startsWith("HTTP/1.1 200 OK\r\n"), own.constData());
        const QByteArray other = answerOfUser(somebodyElse, request);
        QVERIFY2(other.startsWith("HTTP/1.1 403 Forbidden\r\n"), other.constData());
        QCOMPARE(bodyOf(other).value("error"_L1).toObject().value("status"_L1).toString(),
                 u"PERMISSION_DENIED"_s);
    }

    void answersAnIPv6SocketOfItsOwnUser() {
        const int socket = ::socket(AF_INET6, SOCK_STREAM, 0);
        if (socket < 0) {
            QSKIP("The system has no IPv6.");
        }
        sockaddr_in6 address{};
        address.sin6_family = AF_INET6;
        address.sin6_port = htons(engine_->port());
        QCOMPARE(::inet_pton(AF_INET6, "::ffff:127.0.0.1", &address.sin6_addr), 1);
        QCOMPARE(::connect(socket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        QTcpSocket caller;
        QVERIFY(caller.setSocketDescriptor(socket));
        caller.write("GET / HTTP/1.1\r\n" + ownHost() + "\r\n");
        QVERIFY(caller.waitForReadyRead(fennick::test::patience));
        QVERIFY(caller.readAll().startsWith("HTTP/1.1 404"));
    }

    void strangersKeepNobodyElseWaiting() {
        if (::geteuid() != 0) {
            QSKIP("Only root can be another user.");
        }
        QProcess stranger;
        become(stranger, somebodyElse);
        stranger.start(u"/bin/bash"_s,
                       {u"-c"_s, u"for n in {10..59}; do eval \"exec $n<>/dev/tcp/127.0.0.1/%1\"; done; "
                                 "echo connected; sleep 100"_s.arg(engine_->port())});
        QVERIFY(stranger.waitForReadyRead(fennick::test::patience));
        const QByteArray json = "Content-Type: application/json\r\n";
        QVERIFY(answerTo("POST", ownHost() + json).startsWith("HTTP/1.1 200 OK\r\n"));
        QVERIFY(test::waitUntil([&] { return engine_->connections() <= 8; }));
        stranger.kill();
        stranger.waitForFinished(fennick::test::patience);
    }

    void permitsNothingToOtherSites() {
        const QByteArray json = "Content-Type: application/json\r\n";
        const QByteArray own = ownHost() + "Origin: http://127.0.0.1:" + QByteArray::number(engine_->port());
        for (const QByteArray &answer :
             {answerTo("POST", ownHost() + json), answerTo("POST", own + "\r\n" + json),
              answerTo("OPTIONS", own + "\r\nAccess-Control-Request-Method: POST\r\n"),
              answerTo("POST", ownHost() + "Origin: http://evil.example\r\n" + json)}) {
            QVERIFY(!answer.isEmpty());
            const QByteArray head = answer.first(answer.indexOf("\r\n\r\n")).toLower();
            QVERIFY2(!head.contains("access-control"), head.constData());
            QVERIFY2(!head.contains("allow"), head.constData());
        }
    }
};

int program_guard_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, ProgramGuardTest>(argc, argv);
}
#include "program_guard_test.moc"
