#include "extraction/answer_guard.h"

#include "extraction/gemini_error.h"
#include "platform/connection_limit.h"

#include <QCoreApplication>
#include <QNetworkReply>

namespace fennick::GeminiClient {

namespace {

// Often enough for the fastest network: what comes in between is memory taken.
constexpr std::chrono::milliseconds transferWatchInterval{500};

quint16 portOf(const QUrl &url) {
    return static_cast<quint16>(url.port(url.scheme() == u"http" ? 80 : 443));
}

} // namespace

QString answerTooLarge(qint64 limit) {
    return QString::fromUtf8(answerTooLargeText).arg(limit / (1024LL * 1024));
}

AnswerGuard::AnswerGuard(QNetworkReply &reply, const AnswerLimits &limits)
    : reply_(reply) {
    patience_.setSingleShot(true);
    patience_.setInterval(limits.longestTime);
    connect(&patience_, &QTimer::timeout, this, [this] {
        end(QString::fromUtf8(QT_TRANSLATE_NOOP("TransportError", "The request timed out.")));
    });
    connect(&reply, &QNetworkReply::metaDataChanged, this, [this] { patience_.start(); });
    connect(&reply, &QNetworkReply::readyRead, this, [this, limit = limits.largestSize] {
        if (reply_.bytesAvailable() > limit) {
            beginning_ = reply_.peek(longestBeginning);
            end(answerTooLarge(limit));
        }
    });
    connect(&transferWatch_, &QTimer::timeout, this,
            [port = portOf(reply.request().url()), limit = limits.largestTransfer] {
                cutConnectionsBeyond(port, limit);
            });
    transferWatch_.start(transferWatchInterval);
}

// Not at once: the code that waits for the reply's end may destroy the guard, from inside whose slot this is
// called.
void AnswerGuard::end(const QString &violation) {
    violation_ = violation;
    QMetaObject::invokeMethod(&reply_, &QNetworkReply::abort, Qt::QueuedConnection);
}

} // namespace fennick::GeminiClient
