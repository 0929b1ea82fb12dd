#include "extraction/places_client.h"

#include "extraction/answer_guard.h"
#include "extraction/gemini_request.h"
#include "extraction/network_owners.h"
#include "extraction/request_document.h"
#include "text/json_reader.h"

#include <QCoroNetworkReply>
#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QTime>

#include <chrono>
#include <cmath>

using namespace Qt::StringLiterals;

namespace fennick::PlacesClient {

namespace {

constexpr auto placesPath = "/fennick/v1/places"_L1;
constexpr std::chrono::milliseconds longestSilence = std::chrono::minutes(1);
// The engine takes 64 MiB, of which the file's encoding is four thirds of the file.
constexpr qint64 largestFile = 47LL * 1024 * 1024;
constexpr qsizetype longestText = 500;
constexpr double largestAmount = 1e12;

QJsonObject searchedValues(const GeminiReceiptData &values) {
    QJsonObject members{{u"category"_s, values.category.left(longestText)},
                        {u"summary"_s, values.summary.left(longestText)}};
    if (values.date && QDate::fromString(*values.date, u"yyyy-MM-dd"_s).isValid()) {
        members.insert(u"date"_s, *values.date);
    }
    if (values.time && QTime::fromString(*values.time, u"HH:mm"_s).isValid()) {
        members.insert(u"time"_s, *values.time);
    }
    if (values.amount && std::abs(*values.amount) <= largestAmount) {
        members.insert(u"amount"_s, *values.amount);
    }
    if (values.currency) {
        members.insert(u"currency"_s, values.currency->left(longestText));
    }
    if (values.location) {
        members.insert(u"location"_s, values.location->left(longestText));
    }
    return members;
}

std::optional<PlaceOnPage> placeIn(const QJsonObject &object) {
    const QRectF area(object.value("x"_L1).toDouble(-1), object.value("y"_L1).toDouble(-1),
                      object.value("width"_L1).toDouble(), object.value("height"_L1).toDouble());
    const int page = object.value("page"_L1).toInt() - 1;
    const QRectF shown = area & QRectF(0, 0, 1, 1);
    if (page < 0 || area.x() < 0 || area.y() < 0 || shown.isEmpty()) {
        return std::nullopt;
    }
    return PlaceOnPage{page, shown};
}

QNetworkRequest request(const QString &engineAddress) {
    QNetworkRequest request(QUrl(engineAddress + placesPath));
    request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json"_ba);
    request.setTransferTimeout(static_cast<int>(longestSilence.count()));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    return request;
}

} // namespace

std::expected<QByteArray, FileProblem> requestBody(FileToRead wanted, const GeminiReceiptData &values) {
    wanted.mostBytes = largestFile;
    const QByteArray head =
        "{\"values\":" + QJsonDocument(searchedValues(values)).toJson(QJsonDocument::Compact) +
        ",\"contents\":[{\"parts\":[{\"inlineData\":{\"mimeType\":\"" +
        GeminiClient::mimeType(wanted.path).toLatin1() + "\",\"data\":\"";
    return bodyWithDocument(head, wanted, "\"}}]}]}");
}

std::optional<ValuePlaces> readAnswer(const QByteArray &body) {
    const QJsonObject answer = parsedJson(body).value_or(QJsonValue()).toObject();
    if (!answer.value("evidence"_L1).isObject() || !answer.value("missing"_L1).isArray()) {
        return std::nullopt;
    }
    ValuePlaces places;
    places.pages = answer.value("pages"_L1).toInt();
    const QJsonObject evidence = answer.value("evidence"_L1).toObject();
    for (auto member = evidence.begin(); member != evidence.end(); ++member) {
        if (const auto place = placeIn(member.value().toObject())) {
            places.found.insert(member.key(), *place);
        }
    }
    const QJsonArray missing = answer.value("missing"_L1).toArray();
    for (const QJsonValueConstRef name : missing) {
        places.missing.append(name.toString());
    }
    return places;
}

QCoro::Task<std::optional<ValuePlaces>> find(QByteArray body, QString engineAddress,
                                             std::stop_token engineEnd, std::stop_token stop) {
    const SessionPointer session(new QNetworkAccessManager);
    session->setProxy(QNetworkProxy::NoProxy); // the receipt must not leave this machine
    const ReplyPointer reply(session->post(request(engineAddress), body));
    GeminiClient::AnswerGuard guard(*reply);
    const auto giveUp = [&guard] {
        guard.end({});
    };
    const std::stop_callback atEngineEnd(engineEnd, giveUp);
    const std::stop_callback atStop(stop, giveUp);
    co_await qCoro(reply.get()).waitForFinished();
    constexpr int success = 200;
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (stop.stop_requested() || guard.violation() || reply->error() != QNetworkReply::NoError ||
        status != success) {
        co_return std::nullopt;
    }
    co_return readAnswer(reply->readAll());
}

} // namespace fennick::PlacesClient
