#include "service_failures.h"

namespace fennick::test {

using namespace Qt::StringLiterals;

namespace {

HttpReply answer(int status, const QByteArray &body) {
    return HttpReply{.status = status, .body = body, .headers = {}};
}

HttpReply candidate(const QByteArray &json) {
    return answer(200, "{\"candidates\": [" + json + "]}");
}

// 600 characters for a reader; 500 of them are shown. A family is one character of 11 UTF-16 units, an
// accent over a letter takes two, a flag four.
QString characters(int count) {
    const QStringList kinds = {u"👨‍👩‍👧‍👦"_s, u"e\u0301"_s, u"🇸🇪"_s, u"x"_s};
    QString text;
    for (int index = 0; index < count; ++index) {
        text += kinds[index % kinds.size()];
    }
    return text;
}

QList<ServiceFailure> httpFailures() {
    const QString prefix = u"Gemini API error: "_s;
    const QByteArray errorObject = R"({"error": {"code": 403, "message": "quota"}})";
    return {
        {"400 with a text", answer(400, "Bad request"), prefix + u"400 — Bad request"_s},
        {"403 with an error object", answer(403, errorObject),
         prefix + u"403 — "_s + QString::fromUtf8(errorObject)},
        {"401 with an empty body", answer(401, ""), prefix + u"401"_s},
        {"404 with lines", answer(404, "not\nfound\n"), prefix + u"404 — not\nfound\n"_s},
        {"429 in Swedish", answer(429, "För många"), prefix + u"429 — För många"_s},
        {"500 with an empty body", answer(500, ""), prefix + u"500"_s},
        {"500 with 600 characters", answer(500, characters(600).toUtf8()),
         prefix + u"500 — "_s + characters(500)},
        {"500 with 500 characters", answer(500, characters(500).toUtf8()),
         prefix + u"500 — "_s + characters(500)},
        {"502 that is not UTF-8", answer(502, "caf\xE9"), prefix + u"502"_s},
        {"503 with a good answer", answer(503, "{\"candidates\": []}"),
         prefix + u"503 — {\"candidates\": []}"_s},
        {"300", answer(300, "choose"), prefix + u"300 — choose"_s},
    };
}

QList<ServiceFailure> apiFailures() {
    const QString prefix = u"Gemini API returned error "_s;
    return {
        {"error with code and message", answer(200, R"({"error": {"code": 429, "message": "slow down"}})"),
         prefix + u"429: slow down"_s},
        {"error with a message", answer(200, R"({"error": {"message": "quota"}})"), prefix + u"200: quota"_s},
        {"error with a code", answer(200, R"({"error": {"code": 7}})"), prefix + u"7: unknown"_s},
        {"error with nothing", answer(200, R"({"error": {}})"), prefix + u"200: unknown"_s},
        {"error with values of other types", answer(200, R"({"error": {"code": "7", "message": 8}})"),
         prefix + u"200: unknown"_s},
        {"error with a negative code", answer(200, R"({"error": {"code": -1, "message": "m"}})"),
         prefix + u"-1: m"_s},
        {"error in a 299", answer(299, R"({"error": {"message": "late"}})"), prefix + u"299: late"_s},
        {"error beside candidates",
         answer(200, R"({"candidates": [{"content": {"parts": [{"text": "{}"}]}}], "error": {"code": 1}})"),
         prefix + u"1: unknown"_s},
    };
}

QList<ServiceFailure> candidateFailures() {
    QList<ServiceFailure> failures;
    const QList<std::pair<QByteArray, QByteArray>> bodies = {
        {"empty body", ""},
        {"no JSON", "<html>"},
        {"cut JSON", "{\"candidates\": [{"},
        {"an array", "[{\"candidates\": []}]"},
        {"an empty object", "{}"},
        {"only feedback", R"({"promptFeedback": {"blockReason": "SAFETY"}})"},
        {"candidates that are no list", R"({"candidates": {"content": {}}})"},
        {"an empty list of candidates", R"({"candidates": []})"},
        {"candidates that are not all objects", R"({"candidates": [{"content": {}}, 1]})"},
        {"an error that is no object", R"({"error": "quota"})"},
    };
    for (const auto &[name, body] : bodies) {
        failures.append(
            {"answer: " + name, answer(200, body), u"Gemini API returned no candidates in response"_s});
    }
    return failures;
}

QList<ServiceFailure> textFailures() {
    const QString prefix = u"Gemini API returned no text content. Finish reason: "_s;
    return {
        {"part without a text",
         candidate(R"({"content": {"parts": [{"inlineData": {}}]}, "finishReason": "SAFETY"})"),
         prefix + u"SAFETY"_s},
        {"no finish reason", candidate(R"({"content": {"parts": [{}]}})"), prefix + u"unknown"_s},
        {"finish reason that is no text", candidate(R"({"content": {"parts": []}, "finishReason": 2})"),
         prefix + u"unknown"_s},
        {"no content", candidate(R"({"finishReason": "RECITATION"})"), prefix + u"RECITATION"_s},
        {"content that is no object", candidate(R"({"content": [], "finishReason": "OTHER"})"),
         prefix + u"OTHER"_s},
        {"parts that are not all objects",
         candidate(R"({"content": {"parts": [{"text": "{}"}, 1]}, "finishReason": "STOP"})"),
         prefix + u"STOP"_s},
        {"empty first text",
         candidate(R"({"content": {"parts": [{"text": ""}, {"text": "{}"}]}, "finishReason": "MAX_TOKENS"})"),
         prefix + u"MAX_TOKENS"_s},
        {"text only in the second candidate",
         candidate(R"({"finishReason": "SAFETY"}, {"content": {"parts": [{"text": "{}"}]}})"),
         prefix + u"SAFETY"_s},
    };
}

QList<ServiceFailure> parseFailures() {
    QList<ServiceFailure> failures;
    const auto add = [&failures](const QByteArray &name, const QString &text, const QString &shown) {
        failures.append({"text: " + name, answering(text.toUtf8()),
                         u"Could not parse JSON from Gemini response. Raw response: "_s + shown});
    };
    for (const auto &[name, text] : QList<std::pair<QByteArray, QString>>{
             {"words", u"I cannot read this receipt."_s},
             {"two objects", u"{\"amount\": 1} or {\"amount\": 2}"_s},
             {"two objects in a fence", u"```json\n{\"amount\": 1}\n{\"amount\": 2}\n```"_s},
             {"a list without an object", u"[1, 2]"_s},
             {"an object that is cut", u"{\"amount\": 1, \"summary\": \"Lun"_s},
             {"a brace too many", u"{\"amount\": 1}}"_s},
             {"blanks", u"  \n "_s},
         }) {
        add(name, text, text);
    }
    add("600 characters", characters(600), characters(500));
    return failures;
}

// Servers like to repeat what they refuse.
QList<ServiceFailure> failuresThatRepeat(const QByteArray &key) {
    QByteArray escapedKey = key;
    escapedKey.replace("A", "\\u0041");
    return {
        {"key in the body of an error", answer(400, "API key " + key + " is not valid"),
         u"Gemini API error: 400 — API key [API key] is not valid"_s},
        {"key in a message", answer(200, R"({"error": {"code": 400, "message": "Bad key )" + key + "\"}}"),
         u"Gemini API returned error 400: Bad key [API key]"_s},
        {"key in a message, escaped",
         answer(200, R"({"error": {"code": 400, "message": "Bad key )" + escapedKey + "\"}}"),
         u"Gemini API returned error 400: Bad key [API key]"_s},
        {"key as finish reason", candidate(R"({"finishReason": ")" + key + "\"}"),
         u"Gemini API returned no text content. Finish reason: [API key]"_s},
        {"key in the text", answering("Your key is " + key),
         u"Could not parse JSON from Gemini response. Raw response: Your key is [API key]"_s},
    };
}

} // namespace

QList<ServiceFailure> serviceFailures(const QByteArray &key) {
    return httpFailures() + apiFailures() + candidateFailures() + textFailures() + parseFailures() +
           failuresThatRepeat(key);
}

} // namespace fennick::test
