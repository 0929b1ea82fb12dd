#include "engine/http_connection.h"

#include <chrono>
#include <utility>

namespace fennick {

namespace {

using namespace std::chrono_literals;

constexpr qsizetype largestHead = 64 * 1024;
// A caller on the same machine that is silent for so long has died or never speaks HTTP.
constexpr auto longestSilence = 30s;

QByteArray statusText(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 404:
        return "Not Found";
    case 411:
        return "Length Required";
    case 413:
        return "Content Too Large";
    case 431:
        return "Request Header Fields Too Large";
    case 500:
        return "Internal Server Error";
    case 501:
        return "Not Implemented";
    case 505:
        return "HTTP Version Not Supported";
    default:
        return "Bad Request";
    }
}

} // namespace

HttpConnection::HttpConnection(QTcpSocket *socket, qsizetype largestBody, QObject *parent)
    : QObject(parent)
    , socket_(socket)
    , largestBody_(largestBody) {
    socket_->setParent(this);
    idle_.setSingleShot(true);
    connect(&idle_, &QTimer::timeout, socket_, &QTcpSocket::abort);
    connect(socket_, &QTcpSocket::readyRead, this, &HttpConnection::readMore);
    connect(socket_, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    idle_.start(longestSilence);
}

void HttpConnection::answer(int status, const QByteArray &json) {
    socket_->write("HTTP/1.1 " + QByteArray::number(status) + ' ' + statusText(status) +
                   "\r\nContent-Type: application/json; charset=UTF-8\r\nContent-Length: " +
                   QByteArray::number(json.size()) + "\r\nConnection: close\r\n\r\n" + json);
    socket_->disconnectFromHost();
    idle_.start(longestSilence);
}

void HttpConnection::readMore() {
    if (isComplete_) {
        socket_->readAll(); // pipelined requests are not served
        return;
    }
    idle_.start(longestSilence);
    if (!head_) {
        readHead();
    }
    if (head_ && !isComplete_) {
        readBody();
    }
}

void HttpConnection::readHead() {
    buffer_ += socket_->read(largestHead + 4 - buffer_.size());
    const qsizetype end = buffer_.indexOf("\r\n\r\n");
    if (end < 0) {
        if (buffer_.size() > largestHead) {
            refuse(431);
        }
        return;
    }
    const std::expected<HttpHead, int> head = parsedHead(buffer_.first(end));
    if (!head) {
        refuse(head.error());
        return;
    }
    head_ = *head;
    buffer_.remove(0, end + 4);
    bodyReceived_ = buffer_.size();
    if (head_->expectsContinue) {
        socket_->write("HTTP/1.1 100 Continue\r\n\r\n");
    }
}

void HttpConnection::readBody() {
    const QByteArray piece = socket_->read(head_->contentLength - bodyReceived_);
    bodyReceived_ += piece.size();
    const bool isTooLarge = head_->contentLength > largestBody_;
    if (isTooLarge) {
        buffer_.clear();
    } else {
        buffer_ += piece;
    }
    if (bodyReceived_ < head_->contentLength) {
        return;
    }
    if (isTooLarge) {
        refuse(413);
        return;
    }
    isComplete_ = true;
    idle_.stop();
    Q_EMIT received(head_->method, head_->target, std::exchange(buffer_, {}).first(head_->contentLength));
}

void HttpConnection::refuse(int status) {
    isComplete_ = true;
    Q_EMIT refused(status);
}

} // namespace fennick
