#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QProcess>
#include <QString>

#include <optional>

namespace fennick::engine {

struct HttpAnswer {
    int status = 0; // 0 = no answer
    QJsonObject body;
};

// A running fennick-engine on a free port, ended with the object.
class EngineProcess {
public:
    EngineProcess();
    ~EngineProcess();

    bool isRunning() const;
    quint16 port() const { return port_; }
    // How many callers it has accepted and not yet let go.
    qsizetype connections() const;
    // How many processes work for it.
    qsizetype children() const;
    // The most memory it has held so far, in MB; nothing for a build with sanitizers, which hold much more.
    std::optional<int> peakMemory() const;
    // The processor time that it has used so far, in milliseconds.
    qint64 processorTime() const;

    // The address of generateContent with a key.
    QString generatePath() const;

    QNetworkReply *send(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body);
    HttpAnswer answerTo(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body);
    // Sends `request` as it is; what comes back until the connection is closed.
    QByteArray rawAnswerTo(const QByteArray &request) const;

private:
    QProcess process_;
    QNetworkAccessManager network_;
    quint16 port_ = 0;
};

// The JSON of an answer as it came.
QJsonObject bodyOf(const QByteArray &rawAnswer);

// The body of a generateContent request.
QByteArray requestFor(const QByteArray &document, const QString &mimeType);

// Waits until `reply` is finished and takes it apart.
HttpAnswer finished(QNetworkReply *reply);

} // namespace fennick::engine
