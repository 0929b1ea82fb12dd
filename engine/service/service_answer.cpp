#include "engine/service/service_answer.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

template <typename Value>
QJsonValue orNull(const std::optional<Value> &value) {
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

QString fieldsText(const ReceiptFields &fields) {
    QJsonObject object{
        {u"date"_s, fields.date ? QJsonValue(fields.date->toString(Qt::ISODate)) : QJsonValue::Null},
        {u"time"_s, fields.time ? QJsonValue(fields.time->toString(u"HH:mm"_s)) : QJsonValue::Null},
        {u"amount"_s, orNull(fields.amount)},
        {u"currency"_s, orNull(fields.currency)},
        {u"location"_s, orNull(fields.location)},
        {u"category"_s, fields.category},
        {u"summary"_s, fields.summary},
    };
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

QJsonObject generateAnswer(const ReceiptFields &fields, const QString &model) {
    const QJsonObject content{
        {u"parts"_s, QJsonArray{QJsonObject{{u"text"_s, fieldsText(fields)}}}},
        {u"role"_s, u"model"_s},
    };
    const QJsonObject candidate{{u"content"_s, content}, {u"finishReason"_s, u"STOP"_s}, {u"index"_s, 0}};
    return {{u"candidates"_s, QJsonArray{candidate}}, {u"modelVersion"_s, model}};
}

QJsonObject errorAnswer(const ServiceError &error) {
    QJsonObject object{{u"code"_s, error.code}, {u"message"_s, error.message}, {u"status"_s, error.status}};
    if (!error.reason.isEmpty()) {
        const QJsonObject detail{
            {u"@type"_s, u"type.googleapis.com/google.rpc.ErrorInfo"_s},
            {u"reason"_s, error.reason},
            {u"domain"_s, u"googleapis.com"_s},
        };
        object.insert(u"details"_s, QJsonArray{detail});
    }
    return {{u"error"_s, object}};
}

ServiceError serviceError(ReadError error) {
    if (error == ReadError::RecogniserMissing) {
        return {.code = 500, .status = u"INTERNAL"_s, .message = readErrorText(error), .reason = {}};
    }
    return {.code = 400, .status = u"INVALID_ARGUMENT"_s, .message = readErrorText(error), .reason = {}};
}

} // namespace fennick::engine
