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

// A request that is refused before it is looked at, by its HTTP status (413 = too large ...).
ServiceError transportError(int httpStatus);

// Whether any key was given; this engine serves one machine and knows no wrong one.
std::expected<void, ServiceError> checkedKey(const QString &key);

// The bytes of the first document in the body of a generateContent request: the first part of its contents
// with "inlineData" or "inline_data". Its type must be one the engine reads; the bytes themselves are not
// looked at. Takes up to three times the size of the body, which is given up on the way.
std::expected<QByteArray, ServiceError> inlineDocument(QByteArray body);

// The same from the request as an object, which is given up.
std::expected<QByteArray, ServiceError> inlineDocument(QJsonObject request);

// Why a request is refused whose arguments are not understood.
ServiceError invalidArgument(const QString &message);

// The object that a request's body is.
std::expected<QJsonObject, ServiceError> requestObject(const QByteArray &body);

} // namespace fennick::engine
