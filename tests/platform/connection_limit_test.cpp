#include "platform/connection_limit.h"
#include "support/conditions.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <memory>

using namespace fennick;
using namespace fennick::test;

namespace {

// A connection over which all these bytes have come.
std::unique_ptr<QTcpSocket> receiver(QTcpServer &server, const QByteArray &bytes) {
    auto socket = std::make_unique<QTcpSocket>();
    socket->connectToHost(server.serverAddress(), server.serverPort());
    server.waitForNewConnection(patience);
    server.nextPendingConnection()->write(bytes);
    waitUntil([&] { return socket->bytesAvailable() == bytes.size(); });
    return socket;
}

} // namespace

class ConnectionLimitTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cutsOnlyWhatReceivedMoreFromThere_data() {
        QTest::addColumn<QHostAddress>("address");
        QTest::newRow("IPv4") << QHostAddress(QHostAddress::LocalHost);
        QTest::newRow("IPv6") << QHostAddress(QHostAddress::LocalHostIPv6);
    }
    void cutsOnlyWhatReceivedMoreFromThere() {
        QFETCH(QHostAddress, address);
        QTcpServer server;
        if (!server.listen(address)) {
            QSKIP("The system has no such address.");
        }
        const auto greedy = receiver(server, QByteArray(100001, 'x'));
        const auto modest = receiver(server, QByteArray(100000, 'x'));
        QTcpServer other;
        QVERIFY(other.listen(QHostAddress::LocalHost));
        const auto stranger = receiver(other, QByteArray(100001, 'x'));
        cutConnectionsBeyond(server.serverPort(), 100000);
        QVERIFY(waitUntil([&] { return greedy->state() == QAbstractSocket::UnconnectedState; }));
        QCOMPARE(greedy->error(), QAbstractSocket::RemoteHostClosedError);
        letTimePass(100);
        QCOMPARE(modest->state(), QAbstractSocket::ConnectedState);
        QCOMPARE(stranger->state(), QAbstractSocket::ConnectedState);
        QVERIFY(server.isListening());
    }

    void leavesSocketsOfOtherKindsAlone() {
        std::array<int, 2> pair{};
        QCOMPARE(::socketpair(AF_UNIX, SOCK_STREAM, 0, pair.data()), 0);
        std::array<char, 10> bytes{};
        QCOMPARE(::write(pair[0], bytes.data(), bytes.size()), 10);
        cutConnectionsBeyond(0, 1);
        QCOMPARE(::read(pair[1], bytes.data(), bytes.size()), 10);
        QCOMPARE(::write(pair[1], bytes.data(), bytes.size()), 10);
        ::close(pair[0]);
        ::close(pair[1]);
    }
};

int connection_limit_test(int argc, char **argv) {
    return runTest<QCoreApplication, ConnectionLimitTest>(argc, argv);
}
#include "connection_limit_test.moc"
