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
    quint16 port() const { return m_port; }

    // The address of generateContent with a key.
    QString generatePath() const;

    QNetworkReply *send(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body);
    HttpAnswer answerTo(const QByteArray &method, const QString &pathAndQuery, const QByteArray &body);

private:
    QProcess m_process;
    QNetworkAccessManager m_network;
    quint16 m_port = 0;
};

// Waits until `reply` is finished and takes it apart.
HttpAnswer finished(QNetworkReply *reply);

} // namespace fennick
