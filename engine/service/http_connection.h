#pragma once

#include "engine/service/http_head.h"

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <optional>

namespace fennick::engine {

// What one caller may take of the engine. The times are long for a program on the same machine, and end the
// patience with one that sends a byte now and then. A large body has its time for each MiB.
struct ConnectionLimits {
    qsizetype largestBody;
    std::chrono::milliseconds headTime = std::chrono::seconds(10);
    std::chrono::milliseconds bodyTime = std::chrono::seconds(30);
    std::chrono::milliseconds answerTime = std::chrono::seconds(30);
    std::optional<int> refusal = {}; // the status that every request is refused with
};

// One caller and its one request; every answer closes the connection. Owns the socket, lives on the main
// thread and deletes itself when the caller is gone. (Qt's HTTP server is not used: it is under the GPL
// alone, and it keeps whatever it is sent, however large, before anyone can refuse it.)
class HttpConnection : public QObject {
    Q_OBJECT

public:
    HttpConnection(QTcpSocket *socket, const ConnectionLimits &limits, QObject *parent);

    // Takes the body that was announced; until then it waits with its sender, whose time does not run.
    void takeBody();
    void answer(int status, const QByteArray &json);

Q_SIGNALS:
    // A request that will be received once takeBody() is called.
    void announced(qsizetype bodySize);
    void received(const QByteArray &method, const QUrl &target, const QByteArray &body);
    // The body of a refused request is read to its end, so that the caller sees the answer, but not kept.
    void refused(int status);

private:
    void readMore();
    void readHead();
    void readBody();
    void refuse(int status);

    enum class Stage { head, waiting, body, complete };

    QTcpSocket *socket_;
    ConnectionLimits limits_;
    QTimer patience_;
    QByteArray buffer_;
    HttpHead head_;
    std::optional<int> refusal_;
    qsizetype bodyReceived_ = 0;
    Stage stage_ = Stage::head;
};

} // namespace fennick::engine
