#pragma once

#include "engine/http_head.h"

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <optional>

namespace fennick {

// One caller and its one request; every answer closes the connection. Owns the socket, lives on the main
// thread and deletes itself when the caller is gone. (Qt's HTTP server is not used: it is under the GPL
// alone, and it keeps whatever it is sent, however large, before anyone can refuse it.)
class HttpConnection : public QObject {
    Q_OBJECT

public:
    // A body above `largestBody` bytes is read to its end, so that the caller sees the refusal, but not kept.
    HttpConnection(QTcpSocket *socket, qsizetype largestBody, QObject *parent);

    void answer(int status, const QByteArray &json);

Q_SIGNALS:
    void received(const QByteArray &method, const QUrl &target, const QByteArray &body);
    void refused(int status);

private:
    void readMore();
    void readHead();
    void readBody();
    void refuse(int status);

    QTcpSocket *m_socket;
    qsizetype m_largestBody;
    QTimer m_idle;
    QByteArray m_buffer;
    std::optional<HttpHead> m_head;
    qsizetype m_bodyReceived = 0;
    bool m_isComplete = false;
};

} // namespace fennick
