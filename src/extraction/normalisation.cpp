#include "extraction/normalisation.h"

#include "extraction/valid_categories.h"
#include "text/characters.h"
#include "text/json_reader.h"
#include "text/pattern.h"
#include "text/white_space.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace fennick::GeminiClient {

namespace {

constexpr qsizetype rawAnswerLimit = 500;
constexpr qsizetype longestText = 1000; // that is stored of a receipt

std::optional<QJsonObject> parsedObject(const QString &text) {
    const auto value = parsedJson(text.toUtf8());
    return value && value->isObject() ? std::optional(value->toObject()) : std::nullopt;
}

std::optional<QString> textMember(const QJsonObject &answer, QLatin1StringView key) {
    const QJsonValue value = answer.value(key);
    return value.isString() ? std::optional(wellFormed(value.toString())) : std::nullopt;
}

std::optional<QString> matchingMember(const QJsonObject &answer, QLatin1StringView key, const char *pattern) {
    const auto text = textMember(answer, key);
    return text && matchesWhole(*text, pattern) ? text : std::nullopt;
}

std::optional<double> numberMember(const QJsonObject &answer, QLatin1StringView key) {
    const QJsonValue value = answer.value(key);
    return value.isDouble() && std::isfinite(value.toDouble()) ? std::optional(value.toDouble())
                                                               : std::nullopt;
}

std::optional<QString> trimmedMember(const QJsonObject &answer, QLatin1StringView key) {
    const auto text = textMember(answer, key);
    const QString trimmed =
        text ? trimmedOfWhiteSpace(shortened(trimmedOfWhiteSpace(*text), longestText)) : QString();
    return trimmed.isEmpty() ? std::nullopt : std::optional(trimmed);
}

// Trimmed of blanks only: a category that ends in a line feed is none of the vocabulary. That is intended.
QString categoryMember(const QJsonObject &answer) {
    const QString misc = u"misc"_s;
    const QString category = trimmedOfBlanks(lowerCased(textMember(answer, "category"_L1).value_or(misc)));
    return std::ranges::find(validCategories, category) == validCategories.end() ? misc : category;
}

} // namespace

std::expected<QJsonObject, GeminiError> extractJSON(const QString &text) {
    if (const auto whole = parsedObject(text)) {
        return *whole;
    }
    const qsizetype first = text.indexOf(u'{');
    const qsizetype last = text.lastIndexOf(u'}');
    if (first >= 0 && last > first) {
        if (const auto inner = parsedObject(text.sliced(first, last - first + 1))) {
            return *inner;
        }
    }
    return std::unexpected(
        GeminiError{GeminiError::Kind::parse, 0, wellFormed(shortened(text, rawAnswerLimit))});
}

GeminiReceiptData normalize(const QJsonObject &answer) {
    GeminiReceiptData data;
    data.date = matchingMember(answer, "date"_L1, R"(\d{4}-\d{2}-\d{2})");
    data.time = matchingMember(answer, "time"_L1, R"(\d{2}:\d{2})");
    data.amount = numberMember(answer, "amount"_L1);
    data.currency = matchingMember(answer, "currency"_L1, "[A-Z]{3}");
    data.location = trimmedMember(answer, "location"_L1);
    data.category = categoryMember(answer);
    data.summary = trimmedMember(answer, "summary"_L1).value_or(u"Receipt scanned successfully"_s);
    return data;
}

} // namespace fennick::GeminiClient
