#include "engine/service/service_answer.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

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

constexpr qsizetype longestPrintedText = 200;

// To a ten-thousandth of the page.
double rounded(double length) {
    return std::round(length * 10'000) / 10'000;
}

} // namespace

void insertEvidence(QJsonObject &members, const QString &name, const std::optional<Evidence> &evidence) {
    if (!evidence) {
        return;
    }
    const QRectF &place = evidence->place;
    members.insert(name, QJsonObject{{u"page"_s, evidence->page + 1},
                                     {u"x"_s, rounded(place.x())},
                                     {u"y"_s, rounded(place.y())},
                                     {u"width"_s, rounded(place.width())},
                                     {u"height"_s, rounded(place.height())},
                                     {u"text"_s, evidence->text.left(longestPrintedText)}});
}

QJsonObject evidenceMembers(const ReceiptEvidence &evidence) {
    QJsonObject members;
    insertEvidence(members, u"date"_s, evidence.date);
    insertEvidence(members, u"time"_s, evidence.time);
    insertEvidence(members, u"total"_s, evidence.total);
    insertEvidence(members, u"currency"_s, evidence.currency);
    insertEvidence(members, u"merchant"_s, evidence.merchant);
    return members;
}

QJsonObject generateAnswer(const ReceiptFields &fields, const QString &model) {
    const QJsonObject content{
        {u"parts"_s, QJsonArray{QJsonObject{{u"text"_s, fieldsText(fields)}}}},
        {u"role"_s, u"model"_s},
    };
    const QJsonObject candidate{{u"content"_s, content}, {u"finishReason"_s, u"STOP"_s}, {u"index"_s, 0}};
    return {{u"candidates"_s, QJsonArray{candidate}},
            {u"evidence"_s, evidenceMembers(fields.evidence)},
            {u"modelVersion"_s, model}};
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
    if (error == ReadError::recogniserMissing) {
        return {.code = 500, .status = u"INTERNAL"_s, .message = readErrorText(error), .reason = {}};
    }
    return {.code = 400, .status = u"INVALID_ARGUMENT"_s, .message = readErrorText(error), .reason = {}};
}

} // namespace fennick::engine
