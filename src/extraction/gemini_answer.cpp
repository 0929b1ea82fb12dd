#include "extraction/gemini_answer.h"

#include "extraction/normalisation.h"
#include "text/characters.h"
#include "text/json_reader.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace fennick::GeminiClient {

namespace {

using Kind = GeminiError::Kind;

constexpr qsizetype errorBodyLimit = 500;

QString utf8OrEmpty(const QByteArray &bytes) {
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString();
}

QString unknown() {
    //: What the service has not said: the reason of a failure or of the end of an answer.
    return QCoreApplication::translate("GeminiError", "unknown");
}

std::optional<int> integer(const QJsonValue &value) {
    const double number = value.toDouble(std::nan(""));
    constexpr double limit = 2147483647.0;
    return std::trunc(number) == number && std::abs(number) <= limit ? std::optional(static_cast<int>(number))
                                                                     : std::nullopt;
}

GeminiError apiError(const QJsonObject &error, int statusCode) {
    return {Kind::api, integer(error.value(QLatin1StringView("code"))).value_or(statusCode),
            wellFormed(error.value(QLatin1StringView("message")).toString(unknown()))};
}

// The objects of an array; nothing when it is no array or something else is among them.
std::optional<QList<QJsonObject>> objects(const QJsonValue &value) {
    if (!value.isArray()) {
        return std::nullopt;
    }
    QList<QJsonObject> result;
    const QJsonArray array = value.toArray();
    for (const QJsonValueConstRef item : array) {
        if (!item.isObject()) {
            return std::nullopt;
        }
        result.append(item.toObject());
    }
    return result;
}

// The text of the first part that has one; later ones are ignored.
QString firstText(const QJsonObject &candidate) {
    const QJsonObject content = candidate.value(QLatin1StringView("content")).toObject();
    const auto parts = objects(content.value(QLatin1StringView("parts"))).value_or(QList<QJsonObject>());
    for (const QJsonObject &part : parts) {
        const QJsonValue text = part.value(QLatin1StringView("text"));
        if (text.isString()) {
            return text.toString();
        }
    }
    return {};
}

} // namespace

std::expected<GeminiReceiptData, GeminiError> readAnswer(int statusCode, const QByteArray &body) {
    if (statusCode < 200 || statusCode > 299) {
        return std::unexpected(
            GeminiError{Kind::http, statusCode, firstCharacters(utf8OrEmpty(body), errorBodyLimit)});
    }
    const QJsonObject answer = parsedJson(body).value_or(QJsonValue()).toObject();
    const QJsonValue error = answer.value(QLatin1StringView("error"));
    if (error.isObject()) {
        return std::unexpected(apiError(error.toObject(), statusCode));
    }
    const auto candidates = objects(answer.value(QLatin1StringView("candidates")));
    if (!candidates || candidates->isEmpty()) {
        return std::unexpected(GeminiError{Kind::noCandidates, 0, {}});
    }
    const QJsonObject candidate = candidates->first();
    const QString text = firstText(candidate);
    if (text.isEmpty()) {
        const QJsonValue finishReason = candidate.value(QLatin1StringView("finishReason"));
        return std::unexpected(GeminiError{Kind::noText, 0, wellFormed(finishReason.toString(unknown()))});
    }
    const auto answerObject = extractJSON(text);
    if (!answerObject) {
        return std::unexpected(answerObject.error());
    }
    return normalize(*answerObject);
}

} // namespace fennick::GeminiClient
