#include "extraction/gemini_error.h"

namespace fennick {

namespace {

QString httpDescription(int status, const QString &body) {
    const QString description = QStringLiteral("Gemini API error: ") + QString::number(status);
    return body.isEmpty() ? description : description + QStringLiteral(" — ") + body;
}

} // namespace

QString GeminiError::errorDescription() const {
    switch (kind) {
    case Kind::fileRead:
        return QStringLiteral("Failed to read file: ") + text;
    case Kind::http:
        return httpDescription(code, text);
    case Kind::api:
        return QStringLiteral("Gemini API returned error ") + QString::number(code) + QStringLiteral(": ") +
               text;
    case Kind::noText:
        return QStringLiteral("Gemini API returned no text content. Finish reason: ") + text;
    case Kind::parse:
        return QStringLiteral("Could not parse JSON from Gemini response. Raw response: ") + text;
    case Kind::noCandidates:
        return QStringLiteral("Gemini API returned no candidates in response");
    }
    Q_UNREACHABLE();
}

QString errorDescription(const ScanError &error) {
    if (const auto *const transport = std::get_if<TransportError>(&error)) {
        return transport->description;
    }
    return std::get<GeminiError>(error).errorDescription();
}

} // namespace fennick
