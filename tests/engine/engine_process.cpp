#include "engine_process.h"

#include <QJsonDocument>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QSignalSpy>

#include <memory>

namespace fennick {

using namespace Qt::StringLiterals;

EngineProcess::EngineProcess() {
    m_process.start(QStringLiteral(FENNICK_BIN_DIR "/fennick-engine"), {u"--port"_s, u"0"_s});
    if (!m_process.waitForReadyRead(20'000))
        return;
    static const QRegularExpression line(uR"(^Listening on http://127\.0\.0\.1:(\d+)\n$)"_s);
    m_port = line.match(QString::fromUtf8(m_process.readAllStandardOutput())).captured(1).toUShort();
}

EngineProcess::~EngineProcess() {
    m_process.terminate();
    m_process.waitForFinished();
}

bool EngineProcess::isRunning() const {
    return m_port != 0 && m_process.state() == QProcess::Running;
}

QString EngineProcess::generatePath() const {
    return u"/v1beta/models/gemini-2.5-flash:generateContent?key=any"_s;
}

QNetworkReply *EngineProcess::send(const QByteArray &method, const QString &pathAndQuery,
                                   const QByteArray &body) {
    QNetworkRequest request(QUrl(u"http://127.0.0.1:%1%2"_s.arg(m_port).arg(pathAndQuery)));
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    return m_network.sendCustomRequest(request, method, body);
}

HttpAnswer EngineProcess::answerTo(const QByteArray &method, const QString &pathAndQuery,
                                   const QByteArray &body) {
    return finished(send(method, pathAndQuery, body));
}

HttpAnswer finished(QNetworkReply *reply) {
    const std::unique_ptr<QNetworkReply> owner(reply);
    QSignalSpy end(reply, &QNetworkReply::finished);
    if (!reply->isFinished() && !end.wait(60'000))
        return {};
    return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
            QJsonDocument::fromJson(reply->readAll()).object()};
}

} // namespace fennick
