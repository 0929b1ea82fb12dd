#include "support/scripted_server.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QSslSocket>
#include <QTimer>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennick::test {

namespace {

struct Connection {
    QByteArray received;
    std::optional<std::chrono::system_clock::time_point> firstByteAt;
};

// The first request in `received`, removed from it, or nothing while it is incomplete.
std::optional<HttpRequest> takeRequest(Connection &connection) {
    const qsizetype headEnd = connection.received.indexOf("\r\n\r\n");
    if (headEnd < 0) {
        return std::nullopt;
    }
    HttpRequest request;
    QList<QByteArray> lines = connection.received.left(headEnd).split('\n');
    const QList<QByteArray> requestLine = lines.takeFirst().trimmed().split(' ');
    request.method = requestLine.value(0);
    request.target = requestLine.value(1);
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.insert(line.left(colon).trimmed().toLower(), line.mid(colon + 1).trimmed());
    }
    const qsizetype length = request.headers.value("content-length").toLongLong();
    const qsizetype bodyStart = headEnd + 4;
    if (connection.received.size() < bodyStart + length) {
        return std::nullopt;
    }
    request.body = connection.received.mid(bodyStart, length);
    request.arrivedAt = *connection.firstByteAt;
    connection.received.remove(0, bodyStart + length);
    connection.firstByteAt.reset();
    return request;
}

QByteArray head(const HttpReply &reply) {
    QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + " Scripted\r\n";
    for (const QByteArray &header : reply.headers) {
        head += header + "\r\n";
    }
    return head +
           "Content-Type: application/json\r\nContent-Length: " + QByteArray::number(reply.body.size()) +
           "\r\n\r\n";
}

void send(QTcpSocket *socket, const HttpReply &reply) {
    switch (reply.fault) {
    case HttpReply::Fault::none:
        socket->write(head(reply) + reply.body);
        return;
    case HttpReply::Fault::hang:
        return;
    case HttpReply::Fault::closeAtOnce:
        socket->abort();
        return;
    case HttpReply::Fault::cutBody:
        socket->write(head(reply) + reply.body.left(reply.body.size() / 2));
        socket->disconnectFromHost();
        return;
    case HttpReply::Fault::noHttp:
        socket->write("SSH-2.0-Scripted\r\n");
        socket->disconnectFromHost();
        return;
    }
}

} // namespace

ScriptedServer::ScriptedServer(Script script, std::optional<QSslConfiguration> tls)
    : script_(std::move(script))
    , tls_(std::move(tls)) {
    setMaxPendingConnections(1000);
    setListenBacklogSize(1000);
    if (!listen(QHostAddress::LocalHost)) {
        qFatal("Cannot listen on loopback: %s", qPrintable(errorString()));
    }
}

QString ScriptedServer::address() const {
    return u"%1://127.0.0.1:%2"_s.arg(tls_ ? u"https"_s : u"http"_s).arg(serverPort());
}

void ScriptedServer::incomingConnection(qintptr descriptor) {
    if (tls_) {
        auto *const socket = new QSslSocket(this);
        socket->setSslConfiguration(*tls_);
        socket->setSocketDescriptor(descriptor);
        serve(socket);
        socket->startServerEncryption();
        return;
    }
    auto *const socket = new QTcpSocket(this);
    socket->setSocketDescriptor(descriptor);
    serve(socket);
}

void ScriptedServer::letAnswersGo() {
    holdsAnswers_ = false;
    for (const std::function<void()> &answer : std::exchange(heldAnswers_, {})) {
        answer();
    }
}

void ScriptedServer::serve(QTcpSocket *socket) {
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, socket,
            [this, socket, connection = std::make_shared<Connection>()] {
                if (!connection->firstByteAt) {
                    connection->firstByteAt = std::chrono::system_clock::now();
                }
                connection->received += socket->readAll();
                while (const auto request = takeRequest(*connection)) {
                    requests_.append(*request);
                    const HttpReply reply = script_(*request);
                    if (holdsAnswers_) {
                        heldAnswers_.append([to = QPointer(socket), reply] {
                            if (to) {
                                send(to, reply);
                            }
                        });
                        continue;
                    }
                    QTimer::singleShot(reply.delay, socket, [socket, reply] { send(socket, reply); });
                }
            });
}

QByteArray geminiAnswer(const QByteArray &text) {
    const QJsonObject part{{u"text"_s, QString::fromUtf8(text)}};
    const QJsonObject content{{u"parts"_s, QJsonArray{part}}, {u"role"_s, u"model"_s}};
    const QJsonObject candidate{{u"content"_s, content}, {u"finishReason"_s, u"STOP"_s}};
    return QJsonDocument(QJsonObject{{u"candidates"_s, QJsonArray{candidate}}}).toJson();
}

HttpReply answering(const QByteArray &text) {
    HttpReply reply;
    reply.body = geminiAnswer(text);
    return reply;
}

QByteArray inlineDocument(const HttpRequest &request) {
    const QJsonObject body = QJsonDocument::fromJson(request.body).object();
    const QJsonArray parts = body.value("contents"_L1)[0]["parts"_L1].toArray();
    const QJsonValue data = parts[1]["inlineData"_L1]["data"_L1];
    return QByteArray::fromBase64(data.toString().toLatin1());
}

} // namespace fennick::test
