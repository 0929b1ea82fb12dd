#include "extraction/gemini_client.h"

#include "extraction/answer_guard.h"
#include "extraction/gemini_answer.h"
#include "extraction/gemini_request.h"

#include <QCoreApplication>
#include <QCoroFuture>
#include <QCoroNetworkReply>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslSocket>
#include <QtConcurrent>

#include <chrono>
#include <memory>

namespace fennick::GeminiClient {

namespace {

using Kind = GeminiError::Kind;
using Result = std::expected<GeminiReceiptData, ScanError>;

// Qt ends a transfer that makes no progress for this long by cancelling it.
constexpr std::chrono::milliseconds timeOut = std::chrono::seconds(60);

// A reply resumes the task from inside one of its own signals, so neither it nor its session may go at once.
struct DeleteLater {
    void operator()(QObject *object) const { object->deleteLater(); }
};
using SessionPointer = std::unique_ptr<QNetworkAccessManager, DeleteLater>;
using ReplyPointer = std::unique_ptr<QNetworkReply, DeleteLater>;

Result failure(Kind kind, const QString &text) {
    return std::unexpected(ScanError(GeminiError{kind, 0, text}));
}

QNetworkRequest request(const QUrl &url) {
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/json"));
    request.setTransferTimeout(static_cast<int>(timeOut.count()));
    // A receipt goes to the configured service and to nobody that it may name.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::SameOriginRedirectPolicy);
    return request;
}

QString transportDescription(const QNetworkReply &reply) {
    if (reply.error() == QNetworkReply::OperationCanceledError) {
        return QCoreApplication::translate("TransportError", "The request timed out.");
    }
    // The library announces a reason and gives none when a compressed answer is damaged.
    const QString description = reply.errorString();
    return description.endsWith(u": ") ? description.chopped(2) : description;
}

// A key of a few characters also stands in ordinary words, and is none that a service gives out.
constexpr qsizetype shortestSecret = 6;

// Servers and the network library may repeat the request's location, and with it the key.
template <typename Text>
Text withoutKey(Text text, const Text &key, const Text &replacement) {
    return key.size() < shortestSecret ? text : text.replace(key, replacement);
}

// The same words in every language: they may also end up in the list and its ledgers.
QString withoutKey(const QString &text, const QString &key) {
    return withoutKey(text, key, QStringLiteral("[API key]"));
}

// Once more after parsing: an answer may spell the key with escapes.
Result withoutKey(std::expected<GeminiReceiptData, GeminiError> answer, const QString &key) {
    if (!answer) {
        answer.error().text = withoutKey(answer.error().text, key);
        return std::unexpected(ScanError(answer.error()));
    }
    if (answer->location) {
        answer->location = withoutKey(*answer->location, key);
    }
    answer->summary = withoutKey(answer->summary, key);
    return *answer;
}

Result resultOf(QNetworkReply &reply, const AnswerGuard &guard, const QString &apiKey) {
    if (guard.violation()) {
        return std::unexpected(ScanError(TransportError{*guard.violation()}));
    }
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool isErrorStatus = status.isValid() && (status.toInt() < 200 || status.toInt() > 299);
    if (reply.error() != QNetworkReply::NoError && !isErrorStatus) {
        const QString description = withoutKey(transportDescription(reply), apiKey);
        return std::unexpected(ScanError(TransportError{description}));
    }
    if (!status.isValid()) {
        return failure(Kind::http, QCoreApplication::translate("GeminiClient", "No HTTP response"));
    }
    const QByteArray body = withoutKey(reply.readAll(), apiKey.toUtf8(), QByteArrayLiteral("[API key]"));
    return withoutKey(readAnswer(status.toInt(), body), apiKey);
}

// TLS must be loaded completely before a request is made: making the first one meanwhile, the main thread
// would take the library's locks in the opposite order, and both threads could wait for each other forever.
std::expected<QByteArray, QString> preparedBody(const FileToRead &file) {
    QSslSocket::supportsSsl();
    return requestBody(file);
}

} // namespace

QCoro::Task<Result> scan(FileToRead file, QString apiKey, QString model, QString serviceAddress) {
    const auto body = co_await QtConcurrent::run(preparedBody, file);
    if (!body) {
        co_return failure(Kind::fileRead, body.error());
    }
    const auto url = endpointUrl(serviceAddress, model, apiKey);
    if (!url) {
        co_return failure(Kind::http, QCoreApplication::translate("GeminiClient", "Invalid endpoint URL"));
    }
    // A session of its own: a shared one queues all but six requests to a host, and their time-out with them.
    const SessionPointer session(new QNetworkAccessManager);
    const ReplyPointer reply(session->post(request(*url), *body));
    const AnswerGuard guard(*reply);
    co_await qCoro(reply.get()).waitForFinished();
    co_return resultOf(*reply, guard, apiKey);
}

void prepare() {
    std::ignore = QtConcurrent::run(&QSslSocket::supportsSsl);
}

} // namespace fennick::GeminiClient
