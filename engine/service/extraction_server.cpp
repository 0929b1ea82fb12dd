#include "engine/service/extraction_server.h"

#include "engine/service/http_connection.h"
#include "engine/service/pdf_process.h"
#include "engine/service/places_request.h"
#include "engine/service/receipt_reader.h"
#include "engine/service/service_answer.h"
#include "engine/service/value_locator.h"
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

ServiceAnswer answerOf(int status, const QJsonObject &body) {
    return {status, QJsonDocument(body).toJson(QJsonDocument::Compact)};
}

ServiceAnswer refusal(const ServiceError &error) {
    return answerOf(error.code, errorAnswer(error));
}

// A large body takes three times its size while it is unpacked: one at a time.
std::mutex unpacking;

std::expected<QList<PdfPage>, ReadError> pagesOf(const QByteArray &bytes, const PdfUse &use,
                                                 const std::stop_token &stop) {
    return readPdfApart(QCoreApplication::applicationFilePath(), bytes, use, stop);
}

std::expected<QByteArray, ServiceError> unpackedDocument(QByteArray body) {
    const std::lock_guard lock(unpacking);
    return inlineDocument(std::move(body));
}

std::expected<PlacesRequest, ServiceError> unpackedPlaces(QByteArray body) {
    const std::lock_guard lock(unpacking);
    return placesRequest(std::move(body));
}

ServiceAnswer readDocument(QByteArray body, const QString &model, const std::stop_token &stop) {
    const std::expected<QByteArray, ServiceError> document = unpackedDocument(std::move(body));
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

ServiceAnswer findPlaces(QByteArray body, const std::stop_token &stop) {
    const std::expected<PlacesRequest, ServiceError> request = unpackedPlaces(std::move(body));
    if (!request) {
        return refusal(request.error());
    }
    const std::expected<LocatedValues, ReadError> located =
        locateValues(request->document, request->values, stop, pagesOf);
    if (!located) {
        return refusal(serviceError(located.error()));
    }
    return answerOf(200, placesAnswer(*located));
}

ServiceAnswer answerTo(QByteArray body, const Answering &answering, const std::stop_token &stop) {
    return stop.stop_requested() ? refusal(serviceError(ReadError::abandoned))
                                 : answering(std::move(body), stop);
}

std::expected<Answering, ServiceError> requestedAnswering(const QByteArray &method, const QUrl &target) {
    if (method == "POST" && target.path() == placesPath) {
        return findPlaces;
    }
    const std::expected<QString, ServiceError> model = requestedModel(method, target.path());
    if (!model) {
        return std::unexpected(model.error());
    }
    const std::expected<void, ServiceError> valid = checkedKey(QUrlQuery(target).queryItemValue(u"key"_s));
    if (!valid) {
        return std::unexpected(valid.error());
    }
    return [name = *model](QByteArray body, const std::stop_token &stop) {
        return readDocument(std::move(body), name, stop);
    };
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
            const std::expected<Answering, ServiceError> answering = requestedAnswering(method, target);
            if (answering) {
                startReading(connection, request, body, *answering);
                return;
            }
            const ServiceAnswer answer = refusal(answering.error());
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
        const ServiceAnswer answer = refusal(transportError(status));
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
                                    const QByteArray &body, const Answering &answering) {
    request->isBeingRead = true;
    QtConcurrent::run(&readers_, answerTo, body, answering, request->caller.get_token())
        .then(this, [this, request, caller = QPointer(connection)](const ServiceAnswer &answer) {
            request->isBeingRead = false;
            forget(*request);
            if (caller) {
                caller->answer(answer.status, answer.json);
            }
        });
}

} // namespace fennick::engine
