#pragma once

#include <QPointer>
#include <QQueue>
#include <QTcpServer>
#include <QThreadPool>

#include <expected>
#include <functional>
#include <memory>
#include <stop_token>

namespace fennick::engine {

class HttpConnection;

// What goes back: plain data, so that the readers' threads touch no part of the server.
struct ServiceAnswer {
    int status = 200;
    QByteArray json;
};

// Makes the answer to a request with this body. Called on a thread of the readers.
using Answering = std::function<ServiceAnswer(QByteArray body, const std::stop_token &stop)>;

// Answers generateContent requests with what the engine reads in their document, and requests for the places
// of values with where these stand. Lives on the main thread; documents are read on a pool of its own, one
// thread per processor. However many callers there are, a bounded number is connected and a bounded size of
// requests is held; the others wait in their turn. Only programs of this user are served: whoever else is on
// the machine can reach the port as well.
class ExtractionServer : public QObject {
    Q_OBJECT

public:
    explicit ExtractionServer(QObject *parent = nullptr);
    // Gives up the documents being read and waits for their threads.
    ~ExtractionServer() override;

    // Listens on 127.0.0.1; port 0 = any free one. The error says why it cannot.
    std::expected<quint16, QString> listen(quint16 port);
    // Takes the connections of an open socket that listens already; returns its port.
    std::expected<quint16, QString> listenOn(int socket);

private:
    // One request from its announcement until neither its caller nor a reader needs it any more.
    struct Request {
        qsizetype size = 0;
        bool isAdmitted = false;
        bool isBeingRead = false;
        std::stop_source caller; // stopped when it has gone
    };
    struct Waiting {
        QPointer<HttpConnection> connection;
        std::shared_ptr<Request> request;
    };

    void acceptWaiting();
    void serve(HttpConnection *connection);
    void refuseStranger(QTcpSocket *socket);
    void answerRefusal(HttpConnection *connection);
    void admitWaiting();
    void forget(Request &request);
    void startReading(HttpConnection *connection, const std::shared_ptr<Request> &request,
                      const QByteArray &body, const Answering &answering);

    QTcpServer listener_;
    int connections_ = 0;
    int strangers_ = 0; // connections of other users, until they have been refused
    QQueue<Waiting> waiting_;
    qsizetype admitted_ = 0; // bytes
    QThreadPool readers_;
};

} // namespace fennick::engine
