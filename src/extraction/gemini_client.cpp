#include "extraction/gemini_client.h"

#include "extraction/answer_guard.h"
#include "extraction/gemini_answer.h"
#include "extraction/gemini_request.h"
#include "extraction/key_removal.h"
#include "extraction/network_owners.h"
#include "extraction/unpacked_body.h"

#include <QCoreApplication>
#include <QCoroFuture>
#include <QCoroNetworkReply>
#include <QNetworkRequest>
#include <QSslSocket>
#include <QtConcurrent>

#include <chrono>

using namespace Qt::StringLiterals;

namespace fennick::GeminiClient {

namespace {

using Kind = GeminiError::Kind;
using Result = std::expected<GeminiReceiptData, ScanError>;

// Qt ends a transfer that makes no progress for this long by cancelling it.
constexpr std::chrono::milliseconds timeOut = std::chrono::seconds(60);

// A service that sends on for longer goes in circles.
constexpr int mostRedirections = 20;

Result failure(Kind kind, const QString &text) {
    return std::unexpected(ScanError(GeminiError{kind, 0, text}));
}

QNetworkRequest request(const QUrl &url) {
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json"_ba);
    request.setTransferTimeout(static_cast<int>(timeOut.count()));
    // Asked for by itself, the library would unpack answers without noticing that one lacks its end.
    request.setRawHeader("Accept-Encoding", "gzip, deflate");
    // The library would follow some and lose the bodies of the others.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    return request;
}

QString transportDescription(const QNetworkReply &reply) {
    if (reply.error() == QNetworkReply::OperationCanceledError) {
        return QString::fromUtf8(QT_TRANSLATE_NOOP("TransportError", "The request timed out."));
    }
    return reply.errorString();
}

bool isErrorStatus(int status) {
    return status < 200 || status > 299;
}

// The network library also reports what an error status means as an error, above these.
bool isTransportError(const QNetworkReply &reply, bool hasErrorStatus) {
    const QNetworkReply::NetworkError error = reply.error();
    return error != QNetworkReply::NoError &&
           (!hasErrorStatus || error <= QNetworkReply::UnknownNetworkError);
}

// The library does not notice every time.
bool isCut(const QNetworkReply &reply, qsizetype received) {
    const QVariant announced = reply.header(QNetworkRequest::ContentLengthHeader);
    return announced.isValid() && received < announced.toLongLong();
}

Result transportFailure(const QString &description, const QString &apiKey) {
    return std::unexpected(ScanError(TransportError{withoutKey(description, apiKey)}));
}

Result answerIn(int status, const QByteArray &body, const QString &apiKey) {
    auto answer = readAnswer(status, body, apiKey);
    if (!answer) {
        return std::unexpected(ScanError(std::move(answer.error())));
    }
    return *std::move(answer);
}

// Text in UTF-8 without the bytes of a character that does not end.
QByteArray withoutBrokenEnd(const QByteArray &bytes) {
    constexpr int longestPart = 3;
    for (int part = 0; part <= longestPart; ++part) {
        const QByteArray whole = bytes.chopped(std::min<qsizetype>(part, bytes.size()));
        if (whole.isValidUtf8()) {
            return whole;
        }
    }
    return bytes;
}

QString description(UnpackingFailure failure) {
    switch (failure) {
    case UnpackingFailure::damaged:
        return QString::fromUtf8(QT_TRANSLATE_NOOP("TransportError", "Decompression failed"));
    case UnpackingFailure::cut:
        return QString::fromUtf8(QT_TRANSLATE_NOOP("TransportError", "Connection closed"));
    case UnpackingFailure::tooLarge:
        break;
    }
    return answerTooLarge(AnswerLimits().largestSize);
}

// Of an error's body only the beginning counts; how it ends is of no interest.
Result errorAnswerIn(int status, const QByteArray &body, const QByteArray &encoding, const QString &apiKey) {
    return answerIn(status, withoutBrokenEnd(unpackedBody(body, encoding, longestBeginning).bytes), apiKey);
}

Result resultOf(QNetworkReply &reply, const AnswerGuard &guard, const QString &apiKey) {
    const QVariant statusAttribute = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const int status = statusAttribute.toInt();
    const bool hasErrorStatus = statusAttribute.isValid() && isErrorStatus(status);
    const QByteArray encoding = reply.rawHeader("Content-Encoding");
    if (hasErrorStatus && guard.beginning()) {
        return errorAnswerIn(status, *guard.beginning(), encoding, apiKey);
    }
    if (guard.violation()) {
        return transportFailure(*guard.violation(), apiKey);
    }
    if (isTransportError(reply, hasErrorStatus)) {
        return transportFailure(transportDescription(reply), apiKey);
    }
    if (!statusAttribute.isValid()) {
        return failure(Kind::http, u"No HTTP response"_s);
    }
    const QByteArray body = reply.readAll();
    if (isCut(reply, body.size())) {
        return transportFailure(QString::fromUtf8(QT_TRANSLATE_NOOP("TransportError", "Connection closed")),
                                apiKey);
    }
    const UnpackedBody unpacked = unpackedBody(body, encoding, AnswerLimits().largestSize);
    if (unpacked.failure && hasErrorStatus) {
        return errorAnswerIn(status, body, encoding, apiKey);
    }
    if (unpacked.failure) {
        return transportFailure(description(*unpacked.failure), apiKey);
    }
    return answerIn(status, unpacked.bytes, apiKey);
}

// Where the service wants to be asked instead; nothing for anybody else than the service.
std::optional<QUrl> redirection(const QNetworkReply &reply) {
    const QUrl target = reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    const QUrl here = reply.url();
    const QUrl there = here.resolved(target);
    const bool isSameOrigin =
        there.scheme() == here.scheme() && there.host() == here.host() && there.port() == here.port();
    return target.isValid() && isSameOrigin ? std::optional(there) : std::nullopt;
}

// Of the kinds of redirection these alone keep the request as it is; the others ask without the receipt.
bool keepsBody(const QNetworkReply &reply) {
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return status == 307 || status == 308;
}

// TLS must be loaded completely before a request is made: making the first one meanwhile, the main thread
// would take the library's locks in the opposite order, and both threads could wait for each other forever.
std::expected<QByteArray, FileProblem> preparedBody(const FileToRead &file) {
    QSslSocket::supportsSsl();
    return requestBody(file);
}

} // namespace

QCoro::Task<Result> scan(FileToRead file, QString apiKey, QString model, QString serviceAddress,
                         std::stop_token serviceEnd) {
    const auto body = co_await QtConcurrent::run(preparedBody, file);
    if (!body) {
        co_return failure(Kind::fileRead, body.error().description());
    }
    const auto url = endpointUrl(serviceAddress, model, apiKey);
    if (!url) {
        co_return failure(Kind::http, u"Invalid endpoint URL"_s);
    }
    QNetworkRequest next = request(*url);
    bool hasBody = true;
    for (int redirections = 0;; ++redirections) {
        // A session of its own: a shared one queues all but six requests to a host, and their time-out with
        // them. One for each redirection, for the connection of the one before may be closing.
        const SessionPointer session(new QNetworkAccessManager);
        const ReplyPointer reply(hasBody ? session->post(next, *body) : session->get(next));
        AnswerGuard guard(*reply);
        const auto giveUp = [&guard] {
            guard.end(QString::fromUtf8(
                QT_TRANSLATE_NOOP("TransportError", "The service has ended unexpectedly.")));
        };
        const std::stop_callback atServiceEnd(serviceEnd, giveUp);
        co_await qCoro(reply.get()).waitForFinished();
        const auto target = redirection(*reply);
        if (!target || redirections == mostRedirections) {
            co_return resultOf(*reply, guard, apiKey);
        }
        next.setUrl(*target);
        hasBody = hasBody && keepsBody(*reply);
    }
}

void prepare() {
    std::ignore = QtConcurrent::run(&QSslSocket::supportsSsl);
}

} // namespace fennick::GeminiClient
