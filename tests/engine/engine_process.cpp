#include "engine/engine_process.h"

#include "support/conditions.h"
#include "support/process_status.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTcpSocket>

#include <algorithm>
#include <memory>

namespace fennick::engine {

using namespace Qt::StringLiterals;

EngineProcess::EngineProcess() {
    process_.start(QStringLiteral(FENNICK_BIN_DIR "/fennick-engine"), {u"--port"_s, u"0"_s});
    if (!process_.waitForReadyRead(test::patience)) {
        return;
    }
    static const QRegularExpression line(uR"(^Listening on http://127\.0\.0\.1:(\d+)\n$)"_s);
    port_ = line.match(QString::fromUtf8(process_.readAllStandardOutput())).captured(1).toUShort();
}

EngineProcess::~EngineProcess() {
    process_.terminate();
    process_.waitForFinished(test::patience);
}

bool EngineProcess::isRunning() const {
    return port_ != 0 && process_.state() == QProcess::Running;
}

qsizetype EngineProcess::connections() const {
    const QDir files(u"/proc/%1/fd"_s.arg(process_.processId()));
    const QStringList names = files.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    const auto sockets = std::ranges::count_if(names, [&files](const QString &name) {
        return QFile::symLinkTarget(files.filePath(name)).contains(u"socket:"_s);
    });
    return sockets - 1; // the one that listens
}

qsizetype EngineProcess::children() const {
    qsizetype count = 0;
    const QDir threads(u"/proc/%1/task"_s.arg(process_.processId()));
    const QStringList names = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        QFile file(threads.filePath(name + u"/children"_s));
        if (file.open(QIODevice::ReadOnly)) {
            count += file.readAll().count(' ');
        }
    }
    return count;
}

std::optional<int> EngineProcess::peakMemory() const {
    const qint64 process = process_.processId();
    return test::isSanitized(process) ? std::nullopt : test::peakMemory(process);
}

qint64 EngineProcess::processorTime() const {
    return test::processorTime(process_.processId());
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

QByteArray EngineProcess::rawAnswerTo(const QByteArray &request) const {
    QTcpSocket socket;
    socket.connectToHost(u"127.0.0.1"_s, port_);
    socket.write(request);
    while (socket.state() != QAbstractSocket::UnconnectedState &&
           socket.waitForDisconnected(test::patience)) {
    }
    return socket.readAll();
}

QJsonObject bodyOf(const QByteArray &rawAnswer) {
    return QJsonDocument::fromJson(rawAnswer.mid(rawAnswer.indexOf("\r\n\r\n") + 4)).object();
}

QByteArray requestFor(const QByteArray &document, const QString &mimeType) {
    const QJsonObject data{{u"mimeType"_s, mimeType}, {u"data"_s, QString::fromLatin1(document.toBase64())}};
    const QJsonArray parts{QJsonObject{{u"text"_s, u"Read this receipt."_s}},
                           QJsonObject{{u"inlineData"_s, data}}};
    return QJsonDocument(QJsonObject{{u"contents"_s, QJsonArray{QJsonObject{{u"parts"_s, parts}}}}})
        .toJson(QJsonDocument::Compact);
}

HttpAnswer finished(QNetworkReply *reply) {
    const std::unique_ptr<QNetworkReply> owner(reply);
    QSignalSpy end(reply, &QNetworkReply::finished);
    if (!reply->isFinished() && !end.wait(test::patience)) {
        return {};
    }
    return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
            QJsonDocument::fromJson(reply->readAll()).object()};
}

} // namespace fennick::engine
