#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QProcess>
#include <QString>

namespace fennick {

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

    // The address of generateContent with a key.
    QString generatePath() const;

    QNetworkReply *send(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body);
    HttpAnswer answerTo(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body);

private:
    QProcess process_;
    QNetworkAccessManager network_;
    quint16 port_ = 0;
};

// Waits until `reply` is finished and takes it apart.
HttpAnswer finished(QNetworkReply *reply);

} // namespace fennick
