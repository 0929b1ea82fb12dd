#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <optional>

class QNetworkReply;

namespace fennick::GeminiClient {

// Limits of one answer. A real one has a few kilobytes and arrives within two seconds of its first byte.
struct AnswerLimits {
    qint64 largestSize = 16LL * 1024 * 1024; // bytes, packed and unpacked
    std::chrono::milliseconds longestTime = std::chrono::minutes(10);
    qint64 largestTransfer = 32LL * 1024 * 1024; // bytes over one connection, of any kind
};

// Far more than is ever shown of an answer, in bytes.
inline constexpr qint64 longestBeginning = 64LL * 1024;

// The text of a transport error: the answer is larger than `limit` bytes.
[[nodiscard]] QString answerTooLarge(qint64 limit);

// Ends a reply whose body grows too large or is still arriving long after its head. The network library's own
// time-out counts from the last progress, so a server that sends a byte now and then never reaches it. Lives
// on the reply's thread and no longer than the reply. A head without end is not part of the reply yet: its
// connection is cut, and the reply ends as if the server had closed it.
class AnswerGuard : public QObject {
public:
    explicit AnswerGuard(QNetworkReply &reply, const AnswerLimits &limits = {});

    // Why the guard ended the reply, for the user; absent if it did not.
    const std::optional<QString> &violation() const { return violation_; }

    // The first bytes of an answer that was ended because it is too large, as received.
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
