#include "extraction/gemini_answer.h"

#include "extraction/key_removal.h"
#include "extraction/normalisation.h"
#include "text/characters.h"
#include "text/json_reader.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace fennick::GeminiClient {

namespace {

using Kind = GeminiError::Kind;

constexpr qsizetype quotationLimit = 500; // of what is not understood
constexpr qsizetype messageLimit = 2000;

QString utf8OrEmpty(const QByteArray &bytes) {
    return bytes.isValidUtf8() ? textFromUtf8({bytes.constData(), static_cast<size_t>(bytes.size())})
                               : QString();
}

const QString unknown = u"unknown"_s;

std::optional<qint64> integer(const QJsonValue &value) {
    const qint64 number = value.toInteger();
    return value == QJsonValue(number) ? std::optional(number) : std::nullopt;
}

GeminiError apiError(const QJsonObject &error, int statusCode) {
    return {Kind::api, integer(error.value("code"_L1)).value_or(statusCode),
            error.value("message"_L1).toString(unknown)};
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
    const QJsonObject content = candidate.value("content"_L1).toObject();
    const auto parts = objects(content.value("parts"_L1)).value_or(QList<QJsonObject>());
    for (const QJsonObject &part : parts) {
        const QJsonValue text = part.value("text"_L1);
        if (text.isString()) {
            return text.toString();
        }
    }
    return {};
}

// Failures hold their texts at full length, or else a key might be cut in two.
std::expected<GeminiReceiptData, GeminiError> resultIn(int statusCode, const QByteArray &body) {
    if (statusCode < 200 || statusCode > 299) {
        return std::unexpected(GeminiError{Kind::http, statusCode, utf8OrEmpty(body)});
    }
    const QJsonObject answer = parsedJson(body).value_or(QJsonValue()).toObject();
    const QJsonValue error = answer.value("error"_L1);
    if (error.isObject()) {
        return std::unexpected(apiError(error.toObject(), statusCode));
    }
    const auto candidates = objects(answer.value("candidates"_L1));
    if (!candidates || candidates->isEmpty()) {
        return std::unexpected(GeminiError{Kind::noCandidates, 0, {}});
    }
    const QJsonObject candidate = candidates->first();
    const QString text = firstText(candidate);
    if (text.isEmpty()) {
        const QJsonValue finishReason = candidate.value("finishReason"_L1);
        return std::unexpected(GeminiError{Kind::noText, 0, finishReason.toString(unknown)});
    }
    const auto answerObject = extractJSON(text);
    if (!answerObject) {
        return std::unexpected(GeminiError{Kind::parse, 0, text});
    }
    return normalize(*answerObject);
}

} // namespace

std::expected<GeminiReceiptData, GeminiError> readAnswer(int statusCode, const QByteArray &body,
                                                         const QString &apiKey) {
    auto result = resultIn(statusCode, body);
    if (!result) {
        GeminiError &error = result.error();
        const bool isQuoted = error.kind == Kind::http || error.kind == Kind::parse;
        error.text =
            wellFormed(shortened(withoutKey(error.text, apiKey), isQuoted ? quotationLimit : messageLimit));
    }
    return result;
}

} // namespace fennick::GeminiClient
