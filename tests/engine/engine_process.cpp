#include "engine_process.h"

#include <QJsonDocument>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QSignalSpy>

#include <memory>

namespace fennick {

using namespace Qt::StringLiterals;

EngineProcess::EngineProcess() {
    process_.start(QStringLiteral(FENNICK_BIN_DIR "/fennick-engine"), {u"--port"_s, u"0"_s});
    if (!process_.waitForReadyRead(20'000)) {
        return;
    }
    static const QRegularExpression line(uR"(^Listening on http://127\.0\.0\.1:(\d+)\n$)"_s);
    port_ = line.match(QString::fromUtf8(process_.readAllStandardOutput())).captured(1).toUShort();
}

EngineProcess::~EngineProcess() {
    process_.terminate();
    process_.waitForFinished();
}

bool EngineProcess::isRunning() const {
    return port_ != 0 && process_.state() == QProcess::Running;
}

QString EngineProcess::generatePath() const {
    return u"/v1beta/models/gemini-2.5-flash:generateContent?key=any"_s;
}

QNetworkReply *EngineProcess::send(const QByteArray &method, const QString &pathAndQuery,
                                   const QByteArray &body) {
    QNetworkRequest request(QUrl(u"http://127.0.0.1:%1%2"_s.arg(port_).arg(pathAndQuery)));
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    return network_.sendCustomRequest(request, method, body);
}

HttpAnswer EngineProcess::answerTo(const QByteArray &method, const QString &pathAndQuery,
                                   const QByteArray &body) {
    return finished(send(method, pathAndQuery, body));
}

HttpAnswer finished(QNetworkReply *reply) {
    const std::unique_ptr<QNetworkReply> owner(reply);
    QSignalSpy end(reply, &QNetworkReply::finished);
    if (!reply->isFinished() && !end.wait(60'000)) {
        return {};
    }
    return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
            QJsonDocument::fromJson(reply->readAll()).object()};
}

} // namespace fennick
