#include "extraction/gemini_error.h"

#include "text/characters.h"

#include <QCoreApplication>

namespace fennick {

namespace {

QString httpDescription(qint64 status, const QString &body) {
    if (body.isEmpty()) {
        return QCoreApplication::translate("GeminiError", "Gemini API error: %1").arg(status);
    }
    //: %1 is the number of an HTTP status, %2 what the service has written.
    return QCoreApplication::translate("GeminiError", "Gemini API error: %1 — %2")
        .arg(QString::number(status), body);
}

} // namespace

QString GeminiError::errorDescription() const {
    switch (kind) {
    case Kind::fileRead:
        return QCoreApplication::translate("GeminiError", "Failed to read file: %1").arg(text);
    case Kind::http:
        return httpDescription(code, text);
    case Kind::api:
        return QCoreApplication::translate("GeminiError", "Gemini API returned error %1: %2")
            .arg(QString::number(code), text);
    case Kind::noText:
        //: %1 is a name from the service, like MAX_TOKENS.
        return QCoreApplication::translate("GeminiError",
                                           "Gemini API returned no text content. Finish reason: %1")
            .arg(text);
    case Kind::parse:
        return QCoreApplication::translate("GeminiError",
                                           "Could not parse JSON from Gemini response. Raw response: %1")
            .arg(text);
    case Kind::noCandidates:
        return QCoreApplication::translate("GeminiError", "Gemini API returned no candidates in response");
    }
    Q_UNREACHABLE();
}

QString errorDescription(const ScanError &error) {
    constexpr qsizetype longestText = 2000;
    const auto *const transport = std::get_if<TransportError>(&error);
    return shortened(transport ? transport->description : std::get<GeminiError>(error).errorDescription(),
                     longestText);
}

} // namespace fennick
