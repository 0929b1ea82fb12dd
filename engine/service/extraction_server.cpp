#include "engine/service/extraction_server.h"

#include "engine/service/http_connection.h"
#include "engine/service/pdf_process.h"
#include "engine/service/receipt_reader.h"
#include "engine/service/service_answer.h"
#include "platform/connection_owner.h"
#include "platform/listening_socket.h"

#include <QCoreApplication>
#include <QFuture>
#include <QJsonDocument>
#include <QPointer>
#include <QUrlQuery>
#include <QtConcurrent>

#include <mutex>
#include <utility>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// Those beyond it wait until one of them ends. Fennick has a few at a time.
constexpr int mostConnections = 32;
// Those beyond it are closed without a word.
constexpr int mostStrangers = 8;
// Requests of usual size enter by the dozen, the largest ones one at a time.
constexpr qsizetype largestAdmitted = largestRequest;

// What goes back: plain data, so that the readers' threads touch no part of the server.
struct Answer {
    int status = 200;
    QByteArray json;
};

Answer answerOf(int status, const QJsonObject &body) {
    return {status, QJsonDocument(body).toJson(QJsonDocument::Compact)};
}

Answer refusal(const ServiceError &error) {
    return answerOf(error.code, errorAnswer(error));
}

// A large body takes three times its size while it is unpacked: one at a time.
std::expected<QByteArray, ServiceError> unpacked(QByteArray body) {
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    return inlineDocument(std::move(body));
}

std::expected<QList<PdfPage>, ReadError> pagesOf(const QByteArray &bytes, int pageLimit,
                                                 const std::stop_token &stop) {
    return readPdfApart(QCoreApplication::applicationFilePath(), bytes, pageLimit, stop);
}

Answer answerTo(QByteArray body, const QString &model, const std::stop_token &stop) {
    if (stop.stop_requested()) {
        return refusal(serviceError(ReadError::abandoned));
    }
    const std::expected<QByteArray, ServiceError> document = unpacked(std::move(body));
    if (!document) {
        return refusal(document.error());
    }
    const std::expected<ReceiptFields, ReadError> fields =
        readReceiptFile(*document, QDate::currentDate(), stop, pagesOf);
    if (!fields) {
        return refusal(serviceError(fields.error()));
    }
    return answerOf(200, generateAnswer(*fields, model));
}

std::expected<QString, ServiceError> acceptedModel(const QByteArray &method, const QUrl &target) {
    const std::expected<QString, ServiceError> model = requestedModel(method, target.path());
    if (!model) {
        return model;
    }
    const std::expected<void, ServiceError> valid = checkedKey(QUrlQuery(target).queryItemValue(u"key"_s));
    if (!valid) {
        return std::unexpected(valid.error());
    }
    return model;
}

} // namespace

ExtractionServer::ExtractionServer(QObject *parent)
    : QObject(parent) {
    connect(&listener_, &QTcpServer::newConnection, this, &ExtractionServer::acceptWaiting);
}

ExtractionServer::~ExtractionServer() {
    waiting_.clear();
    qDeleteAll(findChildren<HttpConnection *>(Qt::FindDirectChildrenOnly));
    readers_.waitForDone();
}

std::expected<quint16, QString> ExtractionServer::listen(quint16 port) {
    if (!listener_.listen(QHostAddress::LocalHost, port)) {
        return std::unexpected(listener_.errorString());
    }
    return listener_.serverPort();
}

std::expected<quint16, QString> ExtractionServer::listenOn(int socket) {
    if (!listener_.setSocketDescriptor(socket)) {
        return std::unexpected(listener_.errorString());
    }
    keepFromChildren(socket); // one that draws a hostile document has no business with requests
    return listener_.serverPort();
}

void ExtractionServer::acceptWaiting() {
    while (connections_ < mostConnections) {
        QTcpSocket *socket = listener_.nextPendingConnection();
        if (!socket) {
            return;
        }
        if (!comesFromOwnUser(socket->socketDescriptor())) {
            refuseStranger(socket);
            continue;
        }
        ++connections_;
        serve(new HttpConnection(socket, {.largestBody = largestRequest}, this));
    }
    // Any more stay with the system, unread.
    listener_.setMaxPendingConnections(0);
}

void ExtractionServer::serve(HttpConnection *connection) {
    const auto request = std::make_shared<Request>();
    connect(connection, &HttpConnection::announced, this, [this, connection, request](qsizetype bodySize) {
        request->size = bodySize;
        waiting_.enqueue({connection, request});
        admitWaiting();
    });
    answerRefusal(connection);
    connect(
        connection, &HttpConnection::received, this,
        [this, connection, request](const QByteArray &method, const QUrl &target, const QByteArray &body) {
            const std::expected<QString, ServiceError> model = acceptedModel(method, target);
            if (model) {
                startReading(connection, request, body, *model);
                return;
            }
            const Answer answer = refusal(model.error());
            connection->answer(answer.status, answer.json);
        });
    connect(connection, &QObject::destroyed, this, [this, request] {
        request->caller.request_stop();
        --connections_;
        if (!request->isBeingRead) {
            forget(*request);
        }
        listener_.setMaxPendingConnections(mostConnections);
        listener_.resumeAccepting();
    });
}

void ExtractionServer::refuseStranger(QTcpSocket *socket) {
    if (strangers_ == mostStrangers) {
        socket->abort();
        socket->deleteLater();
        return;
    }
    ++strangers_;
    auto *const connection =
        new HttpConnection(socket, {.largestBody = largestRequest, .refusal = 403}, this);
    answerRefusal(connection);
    connect(connection, &QObject::destroyed, this, [this] { --strangers_; });
}

void ExtractionServer::answerRefusal(HttpConnection *connection) {
    connect(connection, &HttpConnection::refused, this, [connection](int status) {
        const Answer answer = refusal(transportError(status));
        connection->answer(answer.status, answer.json);
    });
}

void ExtractionServer::admitWaiting() {
    while (!waiting_.isEmpty() && admitted_ + waiting_.head().request->size <= largestAdmitted) {
        const Waiting next = waiting_.dequeue();
        if (next.connection) {
            next.request->isAdmitted = true;
            admitted_ += next.request->size;
            next.connection->takeBody();
        }
    }
}

void ExtractionServer::forget(Request &request) {
    if (request.isAdmitted) {
        request.isAdmitted = false;
        admitted_ -= request.size;
    }
    admitWaiting();
}

void ExtractionServer::startReading(HttpConnection *connection, const std::shared_ptr<Request> &request,
                                    const QByteArray &body, const QString &model) {
    request->isBeingRead = true;
    QtConcurrent::run(&readers_, answerTo, body, model, request->caller.get_token())
        .then(this, [this, request, caller = QPointer(connection)](const Answer &answer) {
            request->isBeingRead = false;
            forget(*request);
            if (caller) {
                caller->answer(answer.status, answer.json);
            }
        });
}

} // namespace fennick::engine
