#include "network_server.h"

#include <QSslSocket>
#include <QTimer>

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

namespace fennick::test {

using Moment = NetworkFault::Moment;

namespace {

// Answers are sent in pieces of this size at most, the next when the last is gone.
constexpr qsizetype largestPiece = 1024 * 1024;

// The next close of the socket is a reset.
void forbidLingering(qintptr descriptor) {
    const linger none{.l_onoff = 1, .l_linger = 0};
    setsockopt(static_cast<int>(descriptor), SOL_SOCKET, SO_LINGER, &none, sizeof none);
}

} // namespace

// One connection and its one request. Owns the socket and goes with it.
class NetworkConnection : public QObject {
public:
    NetworkConnection(NetworkServer *server, qintptr descriptor)
        : QObject(server)
        , server_(server)
        , fault_(server->fault_)
        , socket_(new QSslSocket(this)) {
        connect(socket_, &QSslSocket::readyRead, this, &NetworkConnection::read);
        connect(socket_, &QSslSocket::disconnected, this, &QObject::deleteLater);
        connect(socket_, &QSslSocket::encryptedBytesWritten, this, &NetworkConnection::sendMore);
        // Without encryption what comes is a handshake's first message.
        isHandshake_ = fault_.reset == Moment::inHandshake || fault_.silence == Moment::inHandshake;
        socket_->setSslConfiguration(server->tls_);
        socket_->setSocketDescriptor(descriptor);
        if (!isHandshake_) {
            socket_->startServerEncryption();
        }
    }

private:
    // Whether the fault is due at this moment; a reset happens at once.
    bool isFault(Moment moment) {
        if (fault_.reset == moment) {
            forbidLingering(socket_->socketDescriptor());
            socket_->abort();
        }
        return fault_.reset == moment || fault_.silence == moment;
    }

    void read() {
        const QByteArray bytes = socket_->readAll();
        server_->received_ += bytes;
        request_ += bytes;
        if (isAnswering_ || (isHandshake_ && isFault(Moment::inHandshake))) {
            return;
        }
        const qsizetype end = request_.indexOf("\r\n\r\n");
        if (end < 0 || isFault(Moment::afterRequestHead)) {
            return;
        }
        const qsizetype received = request_.size() - (end + 4);
        if (received > bodyLength(end) / 2 && isFault(Moment::inRequestBody)) {
            return;
        }
        if (received >= bodyLength(end)) {
            ++server_->requests_;
            answer();
        }
    }

    qsizetype bodyLength(qsizetype headEnd) const {
        const QByteArray name = "\r\ncontent-length:";
        const QByteArray head = request_.first(headEnd).toLower() + "\r\n";
        const qsizetype start = head.indexOf(name) + name.size();
        return head.mid(start, head.indexOf('\r', start) - start).trimmed().toLongLong();
    }

    void answer() {
        isAnswering_ = true;
        send(fault_.head);
        if (fault_.interval < std::chrono::milliseconds(0)) {
            return;
        }
        auto *const clock = new QTimer(this);
        connect(clock, &QTimer::timeout, this, [this] { sendByte(); });
        clock->start(fault_.interval);
    }

    void send(const QByteArray &bytes) {
        server_->sentBytes_ += bytes.size();
        socket_->write(bytes);
    }

    void sendByte() {
        if (position_ == fault_.body.size()) {
            end();
            return;
        }
        send(fault_.body.mid(position_++, 1));
    }

    // When what was sent is gone.
    void sendMore() {
        if (!isAnswering_ || socket_->bytesToWrite() > 0 || socket_->encryptedBytesToWrite() > 0 ||
            fault_.interval >= std::chrono::milliseconds(0) || isFault(Moment::afterAnswerHead)) {
            return;
        }
        if (position_ == fault_.body.size() && --fault_.repetitions > 0) {
            position_ = 0;
        }
        if (position_ == fault_.body.size()) {
            end();
            return;
        }
        const qsizetype size = std::min(largestPiece, fault_.body.size() - position_);
        position_ += size;
        send(fault_.body.mid(position_ - size, size));
    }

    void end() {
        if (!isFault(Moment::inAnswerBody)) {
            socket_->disconnectFromHost();
        }
    }

    NetworkServer *server_;
    NetworkFault fault_;
    QSslSocket *socket_;
    QByteArray request_;
    qsizetype position_ = 0; // in the body of the answer
    bool isHandshake_ = false;
    bool isAnswering_ = false;
};

NetworkFault networkAnswer(const QByteArray &status, const QByteArray &headers, const QByteArray &body) {
    NetworkFault answer;
    answer.head = "HTTP/1.1 " + status + "\r\n" + headers +
                  "Content-Type: application/json\r\nContent-Length: " + QByteArray::number(body.size()) +
                  "\r\n\r\n";
    answer.body = body;
    return answer;
}

NetworkServer::NetworkServer(const QSslConfiguration &tls)
    : tls_(tls) {
    if (!listen(QHostAddress::LocalHost)) {
        qFatal("Cannot listen on loopback: %s", qPrintable(errorString()));
    }
}

QByteArray NetworkServer::address() const {
    return "https://127.0.0.1:" + QByteArray::number(serverPort());
}

void NetworkServer::forget() {
    received_.clear();
    connections_ = 0;
    requests_ = 0;
    sentBytes_ = 0;
}

void NetworkServer::incomingConnection(qintptr descriptor) {
    ++connections_;
    if (fault_.reset == Moment::atAccept) {
        forbidLingering(descriptor);
        ::close(static_cast<int>(descriptor));
        return;
    }
    new NetworkConnection(this, descriptor);
}

} // namespace fennick::test
