#include "engine/service/generate_request.h"

#include "kinds/document_kind.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <optional>
#include <utility>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

QJsonValue member(const QJsonObject &object, QLatin1StringView camelCase, QLatin1StringView snakeCase) {
    return object.contains(camelCase) ? object.value(camelCase) : object.value(snakeCase);
}

std::optional<QJsonObject> firstInlineData(const QJsonObject &request) {
    const QJsonArray contents = request.value("contents"_L1).toArray();
    for (const QJsonValue &content : contents) {
        const QJsonArray parts = content.toObject().value("parts"_L1).toArray();
        for (const QJsonValue &part : parts) {
            const QJsonValue data = member(part.toObject(), "inlineData"_L1, "inline_data"_L1);
            if (data.isObject()) {
                return data.toObject();
            }
        }
    }
    return std::nullopt;
}

} // namespace

ServiceError invalidArgument(const QString &message) {
    return {.code = 400, .status = u"INVALID_ARGUMENT"_s, .message = message, .reason = {}};
}

std::expected<QString, ServiceError> requestedModel(const QByteArray &method, const QString &path) {
    static const QRegularExpression pattern(uR"(^/v1beta/models/([^/]+):generateContent$)"_s);
    const QRegularExpressionMatch match = pattern.match(path);
    if (method != "POST" || !match.hasMatch()) {
        return std::unexpected(ServiceError{404, u"NOT_FOUND"_s, u"There is nothing at this address."_s, {}});
    }
    return match.captured(1);
}

ServiceError transportError(int httpStatus) {
    ServiceError error = invalidArgument(u"The request is not one this server understands."_s);
    if (httpStatus == 413) {
        error.message = u"The request is larger than %1 MiB."_s.arg(largestRequest / (1024 * 1024));
    }
    if (httpStatus == 411) {
        error.message = u"The request must say its length."_s;
    }
    if (httpStatus == 415) {
        error.message = u"The request must be of type application/json."_s;
    }
    if (httpStatus == 403) {
        error.status = u"PERMISSION_DENIED"_s;
        error.message = u"Only programs of this user on this machine may use this server."_s;
    }
    error.code = httpStatus;
    return error;
}

std::expected<void, ServiceError> checkedKey(const QString &key) {
    if (!key.isEmpty()) {
        return {};
    }
    ServiceError error = invalidArgument(u"API key not valid. Please pass a valid API key."_s);
    error.reason = u"API_KEY_INVALID"_s;
    return std::unexpected(error);
}

std::expected<QJsonObject, ServiceError> requestObject(const QByteArray &body) {
    const QJsonDocument json = QJsonDocument::fromJson(body);
    if (!json.isObject()) {
        return std::unexpected(invalidArgument(u"The request body is not a JSON object."_s));
    }
    return json.object();
}

std::expected<QByteArray, ServiceError> inlineDocument(QByteArray body) {
    std::expected<QJsonObject, ServiceError> request = requestObject(body);
    body = {};
    if (!request) {
        return std::unexpected(std::move(request.error()));
    }
    return inlineDocument(*std::move(request));
}

std::expected<QByteArray, ServiceError> inlineDocument(QJsonObject request) {
    std::optional<QJsonObject> data = firstInlineData(request);
    request = {};
    if (!data) {
        return std::unexpected(invalidArgument(u"The request has no part with inline data."_s));
    }

    const QString mimeType = member(*data, "mimeType"_L1, "mime_type"_L1).toString();
    if (!kindOfMimeType(mimeType)) {
        return std::unexpected(invalidArgument(u"Unsupported MIME type: "_s + mimeType.left(100)));
    }
    QString text = data->value("data"_L1).toString();
    data.reset();
    // Both conversions use the place of what they convert.
    auto decoded =
        QByteArray::fromBase64Encoding(std::move(text).toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || decoded.decoded.isEmpty()) {
        return std::unexpected(invalidArgument(u"The inline data is not valid base64."_s));
    }
    return std::move(decoded.decoded);
}

} // namespace fennick::engine
