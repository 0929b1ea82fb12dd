#include "engine/extraction_server.h"

#include "engine/http_connection.h"
#include "engine/receipt_reader.h"
#include "engine/service_answer.h"

#include <QFuture>
#include <QJsonDocument>
#include <QPointer>
#include <QUrlQuery>
#include <QtConcurrent>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

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

Answer answerTo(const QByteArray &body, const QString &model) {
    const std::expected<QByteArray, ServiceError> document = inlineDocument(body);
    if (!document) {
        return refusal(document.error());
    }
    const std::expected<ReceiptFields, ReadError> fields = readReceiptFile(*document, QDate::currentDate());
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
    connect(&listener_, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = listener_.nextPendingConnection()) {
            serve(new HttpConnection(socket, largestRequest, this));
        }
    });
}

ExtractionServer::~ExtractionServer() {
    readers_.waitForDone();
}

std::expected<quint16, QString> ExtractionServer::listen(quint16 port) {
    if (!listener_.listen(QHostAddress::LocalHost, port)) {
        return std::unexpected(listener_.errorString());
    }
    return listener_.serverPort();
}

void ExtractionServer::serve(HttpConnection *connection) {
    connect(connection, &HttpConnection::refused, this, [connection](int status) {
        const Answer answer = refusal(transportError(status));
        connection->answer(answer.status, answer.json);
    });
    connect(connection, &HttpConnection::received, this,
            [this, connection](const QByteArray &method, const QUrl &target, const QByteArray &body) {
                const std::expected<QString, ServiceError> model = acceptedModel(method, target);
                if (model) {
                    startReading(connection, body, *model);
                    return;
                }
                const Answer answer = refusal(model.error());
                connection->answer(answer.status, answer.json);
            });
}

void ExtractionServer::startReading(HttpConnection *connection, const QByteArray &body,
                                    const QString &model) {
    // The caller may hang up while its document is being read.
    QtConcurrent::run(&readers_, answerTo, body, model)
        .then(this, [caller = QPointer(connection)](const Answer &answer) {
            if (caller) {
                caller->answer(answer.status, answer.json);
            }
        });
}

} // namespace fennick
