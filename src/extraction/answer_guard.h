#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <optional>

class QNetworkReply;

namespace fennick::GeminiClient {

// What one answer may take of the program. A real one has some kilobytes and comes within a second or two of
// its first byte.
struct AnswerLimits {
    qint64 largestSize = 16LL * 1024 * 1024; // bytes, packed and unpacked
    std::chrono::milliseconds longestTime = std::chrono::minutes(10);
    qint64 largestTransfer = 32LL * 1024 * 1024; // bytes over one connection, whatever they are
};

// Far more than is ever shown of an answer, in bytes.
inline constexpr qint64 longestBeginning = 64LL * 1024;

// The text of a transport error: the answer is larger than `limit` bytes.
[[nodiscard]] QString answerTooLarge(qint64 limit);

// Ends a reply whose body grows too large, or is still coming in long after its head: a sender of a byte now
// and then never runs into the network library's own time-out, which counts from the last progress. Lives on
// the reply's thread and no longer than the reply. A head without end is no part of the reply yet: its
// connection is cut, and the reply ends as if the server had closed it.
class AnswerGuard : public QObject {
public:
    explicit AnswerGuard(QNetworkReply &reply, const AnswerLimits &limits = {});

    // Why the reply was ended, for the user; nothing if the guard had no part in its end.
    const std::optional<QString> &violation() const { return violation_; }

    // The first bytes of an answer that was ended because it is too large, as they came.
    const std::optional<QByteArray> &beginning() const { return beginning_; }

    // Ends the reply soon, for this reason.
    void end(const QString &violation);

private:
    QNetworkReply &reply_;
    QTimer patience_;
    QTimer transferWatch_;
    std::optional<QString> violation_;
    std::optional<QByteArray> beginning_;
};

} // namespace fennick::GeminiClient
