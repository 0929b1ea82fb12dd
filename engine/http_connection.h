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

    QTcpSocket *socket_;
    qsizetype largestBody_;
    QTimer idle_;
    QByteArray buffer_;
    std::optional<HttpHead> head_;
    qsizetype bodyReceived_ = 0;
    bool isComplete_ = false;
};

} // namespace fennick
