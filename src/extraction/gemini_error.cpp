#include "extraction/gemini_error.h"

#include "text/characters.h"

#include <QCoreApplication>

#include <array>

namespace fennick {

namespace {

constexpr qsizetype longestText = 2000; // of what is stored

// The texts are marked for translation here and translated where they are shown: what is stored and exported
// is the same in every language.
constexpr const char *fileReadText = QT_TRANSLATE_NOOP("GeminiError", "Failed to read file: %1");
constexpr const char *httpText = QT_TRANSLATE_NOOP("GeminiError", "Gemini API error: %1");
//: %1 is the number of an HTTP status, %2 what the service has written.
constexpr const char *httpBodyText = QT_TRANSLATE_NOOP("GeminiError", "Gemini API error: %1 — %2");
constexpr const char *apiText = QT_TRANSLATE_NOOP("GeminiError", "Gemini API returned error %1: %2");
//: %1 is a name from the service, like MAX_TOKENS.
constexpr const char *noTextText =
    QT_TRANSLATE_NOOP("GeminiError", "Gemini API returned no text content. Finish reason: %1");
constexpr const char *parseText =
    QT_TRANSLATE_NOOP("GeminiError", "Could not parse JSON from Gemini response. Raw response: %1");
constexpr const char *noCandidatesText =
    QT_TRANSLATE_NOOP("GeminiError", "Gemini API returned no candidates in response");

// Whose texts are stored, some of them inside of another.
constexpr std::array contexts = {"GeminiError",
                                 "TransportError",
                                 "FileProblem",
                                 "fennick::Recovery",
                                 "fennick::ScanRun",
                                 "fennick::UnreadableNames",
                                 "fennick::OnDeviceEngine"};

struct Pattern {
    const char *context;
    const char *text;
};

// The longer of two that begin alike comes first.
constexpr std::array patterns = {Pattern{"GeminiError", fileReadText},
                                 Pattern{"GeminiError", httpBodyText},
                                 Pattern{"GeminiError", httpText},
                                 Pattern{"GeminiError", apiText},
                                 Pattern{"GeminiError", noTextText},
                                 Pattern{"GeminiError", parseText},
                                 Pattern{"TransportError", answerTooLargeText},
                                 Pattern{"TransportError", engineNotStartedText}};

// The translation of a text without places; the text itself where there is none.
QString translatedWhole(const QString &text) {
    if (text.isEmpty()) {
        return text; // which stands for the whole list of translations
    }
    for (const char *const context : contexts) {
        const QString translation = QCoreApplication::translate(context, text.toUtf8().constData());
        if (translation != text) {
            return translation;
        }
    }
    return text;
}

// The translation of `stored` if it is one of the pattern's, with whatever stands there for %1 and %2.
std::optional<QString> translationOf(const QString &stored, const Pattern &pattern) {
    const QString source = QString::fromUtf8(pattern.text);
    const QString translation = QCoreApplication::translate(pattern.context, pattern.text);
    const qsizetype first = source.indexOf(u"%1");
    const qsizetype second = source.indexOf(u"%2");
    const QString after = source.sliced((second < 0 ? first : second) + 2);
    if (stored.size() < first + after.size() || !stored.startsWith(source.first(first)) ||
        !stored.endsWith(after)) {
        return std::nullopt;
    }
    const QString rest = stored.sliced(first).chopped(after.size());
    if (second < 0) {
        return translation.arg(translatedWhole(rest));
    }
    const QString between = source.sliced(first + 2, second - first - 2);
    const qsizetype place = rest.indexOf(between);
    if (place < 0) {
        return std::nullopt;
    }
    return translation.arg(rest.first(place), rest.sliced(place + between.size()));
}

} // namespace

QString GeminiError::errorDescription() const {
    switch (kind) {
    case Kind::fileRead:
        return QString::fromUtf8(fileReadText).arg(text);
    case Kind::http:
        return text.isEmpty() ? QString::fromUtf8(httpText).arg(code)
                              : QString::fromUtf8(httpBodyText).arg(QString::number(code), text);
    case Kind::api:
        return QString::fromUtf8(apiText).arg(QString::number(code), text);
    case Kind::noText:
        return QString::fromUtf8(noTextText).arg(text);
    case Kind::parse:
        return QString::fromUtf8(parseText).arg(text);
    case Kind::noCandidates:
        return QString::fromUtf8(noCandidatesText);
    }
    Q_UNREACHABLE();
}

QString errorDescription(const ScanError &error) {
    const auto *const transport = std::get_if<TransportError>(&error);
    return shortened(transport ? transport->description : std::get<GeminiError>(error).errorDescription(),
                     longestText);
}

bool isTooManyRequests(const ScanError &error) {
    constexpr qint64 tooManyRequests = 429;
    const auto *const answered = std::get_if<GeminiError>(&error);
    return answered != nullptr && answered->code == tooManyRequests;
}

bool isKeyRefusal(const QString &stored) {
    const auto hasStatus = [&stored](int status) {
        return stored.startsWith(QString::fromUtf8(httpText).arg(status));
    };
    return hasStatus(401) || hasStatus(403) || (hasStatus(400) && stored.contains(u"API_KEY_INVALID"));
}

QString inUsersLanguage(const QString &stored) {
    for (const Pattern &pattern : patterns) {
        if (const auto translation = translationOf(stored, pattern)) {
            return *translation;
        }
    }
    return translatedWhole(stored);
}

} // namespace fennick
