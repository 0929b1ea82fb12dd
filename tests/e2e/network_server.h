#pragma once

#include <QByteArray>
#include <QSslConfiguration>
#include <QTcpServer>

#include <chrono>

namespace fennick::test {

// What a server does to one connection.
struct NetworkFault {
    enum class Moment {
        never,
        atAccept,
        inHandshake,
        afterRequestHead,
        inRequestBody,
        afterAnswerHead,
        inAnswerBody, // after as much of it as is given
    };
    Moment reset = Moment::never;   // when the connection is reset (TCP RST)
    Moment silence = Moment::never; // when the server falls silent, with the connection open
    QByteArray head;                // of the answer, with the empty line that ends it
    QByteArray body;
    qint64 repetitions = 1;                 // how often the body is sent
    std::chrono::milliseconds interval{-1}; // if not negative, the body goes byte by byte, one each
};

// A whole answer with this status line's end, headers and body; its length is told.
NetworkFault networkAnswer(const QByteArray &status, const QByteArray &headers, const QByteArray &body);

// An HTTPS server on loopback that plays the set fault to every connection made from then on, and keeps all
// that it receives. Runs on the test's event loop.
class NetworkServer : public QTcpServer {
public:
    explicit NetworkServer(const QSslConfiguration &tls);

    QByteArray address() const; // "https://127.0.0.1:PORT"

    void setTls(const QSslConfiguration &tls) { tls_ = tls; }
    void setFault(const NetworkFault &fault) { fault_ = fault; }

    // Every byte that came, decrypted where there was a handshake.
    const QByteArray &received() const { return received_; }
    int connections() const { return connections_; }
    int requests() const { return requests_; }      // with their whole body
    qint64 sentBytes() const { return sentBytes_; } // of answers, before encryption
    void forget();

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    friend class NetworkConnection;

    QSslConfiguration tls_;
    NetworkFault fault_;
    QByteArray received_;
    int connections_ = 0;
    int requests_ = 0;
    qint64 sentBytes_ = 0;
};

} // namespace fennick::test
