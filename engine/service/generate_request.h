#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <expected>

namespace fennick::engine {

// Why a request is refused, in the terms of the generateContent service.
struct ServiceError {
    int code = 400; // also the HTTP status
    QString status; // "INVALID_ARGUMENT" ...
    QString message;
    QString reason; // machine-readable, for the details; empty = none
};

// The largest request body taken; what a receipt file of 48 MB needs in base64.
constexpr qsizetype largestRequest = 64 * 1024 * 1024;

// The model named in "POST /v1beta/models/<model>:generateContent"; an error (404) for anything else.
std::expected<QString, ServiceError> requestedModel(const QByteArray &method, const QString &path);

// The error for a request that is refused before its body is parsed, by HTTP status (413 = too large ...).
ServiceError transportError(int httpStatus);

// An error for an empty key. Any other is accepted: this engine serves its own machine only.
std::expected<void, ServiceError> checkedKey(const QString &key);

// The bytes of the first document in the body of a generateContent request: the first part of its contents
// with "inlineData" or "inline_data". An error (400) if there is none, if its type is none that the engine
// reads, or if its base64 is empty or invalid. Needs up to three times the size of the body in memory: move
// it in, it is freed as soon as it is parsed.
std::expected<QByteArray, ServiceError> inlineDocument(QByteArray body);

// The same from the request as an object, to be moved in as well.
std::expected<QByteArray, ServiceError> inlineDocument(QJsonObject request);

// An INVALID_ARGUMENT error (400) with this message.
ServiceError invalidArgument(const QString &message);

// The body as a JSON object; an error (400) for anything else.
std::expected<QJsonObject, ServiceError> requestObject(const QByteArray &body);

} // namespace fennick::engine
