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
    , m_socket(socket)
    , m_largestBody(largestBody) {
    m_socket->setParent(this);
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, m_socket, &QTcpSocket::abort);
    connect(m_socket, &QTcpSocket::readyRead, this, &HttpConnection::readMore);
    connect(m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    m_idle.start(longestSilence);
}

void HttpConnection::answer(int status, const QByteArray &json) {
    m_socket->write("HTTP/1.1 " + QByteArray::number(status) + ' ' + statusText(status) +
                    "\r\nContent-Type: application/json; charset=UTF-8\r\nContent-Length: " +
                    QByteArray::number(json.size()) + "\r\nConnection: close\r\n\r\n" + json);
    m_socket->disconnectFromHost();
    m_idle.start(longestSilence);
}

void HttpConnection::readMore() {
    if (m_isComplete) {
        m_socket->readAll(); // pipelined requests are not served
        return;
    }
    m_idle.start(longestSilence);
    if (!m_head)
        readHead();
    if (m_head && !m_isComplete)
        readBody();
}

void HttpConnection::readHead() {
    m_buffer += m_socket->read(largestHead + 4 - m_buffer.size());
    const qsizetype end = m_buffer.indexOf("\r\n\r\n");
    if (end < 0) {
        if (m_buffer.size() > largestHead)
            refuse(431);
        return;
    }
    const std::expected<HttpHead, int> head = parsedHead(m_buffer.first(end));
    if (!head) {
        refuse(head.error());
        return;
    }
    m_head = *head;
    m_buffer.remove(0, end + 4);
    m_bodyReceived = m_buffer.size();
    if (m_head->expectsContinue)
        m_socket->write("HTTP/1.1 100 Continue\r\n\r\n");
}

void HttpConnection::readBody() {
    const QByteArray piece = m_socket->read(m_head->contentLength - m_bodyReceived);
    m_bodyReceived += piece.size();
    const bool isTooLarge = m_head->contentLength > m_largestBody;
    if (isTooLarge)
        m_buffer.clear();
    else
        m_buffer += piece;
    if (m_bodyReceived < m_head->contentLength)
        return;
    if (isTooLarge) {
        refuse(413);
        return;
    }
    m_isComplete = true;
    m_idle.stop();
    Q_EMIT received(m_head->method, m_head->target, std::exchange(m_buffer, {}).first(m_head->contentLength));
}

void HttpConnection::refuse(int status) {
    m_isComplete = true;
    Q_EMIT refused(status);
}

} // namespace fennick
