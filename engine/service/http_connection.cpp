#include "engine/service/http_connection.h"

#include "engine/service/request_guard.h"

#include <utility>

namespace fennick::engine {

namespace {

constexpr qsizetype largestHead = 64 * 1024;
// Of a body, so much must come within its time.
constexpr qsizetype bodyShare = 1024 * 1024;

QByteArray statusText(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 403:
        return "Forbidden";
    case 404:
        return "Not Found";
    case 411:
        return "Length Required";
    case 413:
        return "Content Too Large";
    case 415:
        return "Unsupported Media Type";
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

HttpConnection::HttpConnection(QTcpSocket *socket, const ConnectionLimits &limits, QObject *parent)
    : QObject(parent)
    , socket_(socket)
    , limits_(limits) {
    socket_->setParent(this);
    // What is not taken yet stays with its sender.
    socket_->setReadBufferSize(largestHead + 4);
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, socket_, &QTcpSocket::abort);
    connect(socket_, &QTcpSocket::readyRead, this, &HttpConnection::readMore);
    connect(socket_, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    patience_.start(limits_.headTime);
}

void HttpConnection::takeBody() {
    stage_ = Stage::body;
    patience_.start(limits_.bodyTime);
    if (!refusal_) {
        buffer_.reserve(head_.contentLength);
    }
    if (head_.expectsContinue) {
        socket_->write("HTTP/1.1 100 Continue\r\n\r\n");
    }
    readBody();
}

void HttpConnection::answer(int status, const QByteArray &json) {
    socket_->write("HTTP/1.1 " + QByteArray::number(status) + ' ' + statusText(status) +
                   "\r\nContent-Type: application/json; charset=UTF-8\r\nContent-Length: " +
                   QByteArray::number(json.size()) + "\r\nConnection: close\r\n\r\n" + json);
    socket_->disconnectFromHost();
    patience_.start(limits_.answerTime);
}

void HttpConnection::readMore() {
    switch (stage_) {
    case Stage::head:
        readHead();
        return;
    case Stage::waiting:
        return;
    case Stage::body:
        readBody();
        return;
    case Stage::complete:
        socket_->readAll(); // pipelined requests are not served
        return;
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
    buffer_.truncate(head_.contentLength);
    bodyReceived_ = buffer_.size();
    refusal_ = limits_.refusal ? limits_.refusal : refusalOf(head_, socket_->localPort());
    if (!refusal_ && head_.contentLength > limits_.largestBody) {
        refusal_ = 413;
    }
    if (refusal_ && head_.expectsContinue) {
        refuse(*refusal_);
        return;
    }
    if (refusal_) {
        takeBody();
        return;
    }
    stage_ = Stage::waiting;
    patience_.stop();
    Q_EMIT announced(head_.contentLength);
}

void HttpConnection::readBody() {
    const QByteArray piece = socket_->read(head_.contentLength - bodyReceived_);
    if (bodyReceived_ / bodyShare < (bodyReceived_ + piece.size()) / bodyShare) {
        patience_.start(limits_.bodyTime);
    }
    bodyReceived_ += piece.size();
    if (refusal_) {
        buffer_.clear();
    } else {
        buffer_ += piece;
    }
    if (bodyReceived_ < head_.contentLength) {
        return;
    }
    if (refusal_) {
        refuse(*refusal_);
        return;
    }
    stage_ = Stage::complete;
    patience_.stop();
    Q_EMIT received(head_.method, head_.target, std::exchange(buffer_, {}));
}

void HttpConnection::refuse(int status) {
    stage_ = Stage::complete;
    patience_.start(limits_.answerTime);
    Q_EMIT refused(status);
}

} // namespace fennick::engine
