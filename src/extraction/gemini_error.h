#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <variant>

namespace fennick {

// A failure of the extraction service's client, with the text that is stored: the same in every language.
struct GeminiError {
    enum class Kind { fileRead, http, api, noText, parse, noCandidates };

    Kind kind;
    qint64 code = 0; // for `http` the status, for `api` the service's own code
    QString text;    // message, body, finish reason or raw answer, by kind

    // Of any length, as the text is.
    [[nodiscard]] QString errorDescription() const;

    bool operator==(const GeminiError &other) const = default;
};

// A failure of the network below the service, in the network library's words.
struct TransportError {
    QString description;

    bool operator==(const TransportError &other) const = default;
};

using ScanError = std::variant<GeminiError, TransportError>;

// At most 2,000 characters: whatever a service sends, it must not bloat the list.
[[nodiscard]] QString errorDescription(const ScanError &error);

// Whether the service wants fewer requests.
[[nodiscard]] bool isTooManyRequests(const ScanError &error);

// Whether this stored error means that the service refuses the API key.
[[nodiscard]] bool isKeyRefusal(const QString &stored);

// Stored with a number of megabytes, and with a reason.
inline constexpr const char *answerTooLargeText =
    QT_TRANSLATE_NOOP("TransportError", "The answer is larger than %1 MB.");
inline constexpr const char *engineNotStartedText =
    QT_TRANSLATE_NOOP("TransportError", "The on-device engine could not be started: %1");

// A receipt's stored error as the user is shown it; what the program does not know, as it stands.
QString inUsersLanguage(const QString &stored);

} // namespace fennick
