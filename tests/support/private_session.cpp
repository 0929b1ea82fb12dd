#include "support/private_session.h"

#include "support/conditions.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace fennick::test {

namespace {

const QStringList keyAttributes = {QStringLiteral("service"), QStringLiteral("org.fennick.Fennick"),
                                   QStringLiteral("account"), QStringLiteral("gemini-api-key")};

QByteArray runSecretTool(const QStringList &arguments, const QByteArray &input = {}) {
    QProcess tool;
    tool.start(QStringLiteral("secret-tool"), arguments + keyAttributes);
    tool.write(input);
    tool.closeWriteChannel();
    if (!tool.waitForFinished(patience)) {
        qFatal("secret-tool did not finish");
    }
    return tool.readAllStandardOutput();
}

} // namespace

PrivateSession::PrivateSession() {
    startBus();
    startSecretStore();
}

PrivateSession::~PrivateSession() {
    secretStore_.kill();
    secretStore_.waitForFinished(patience);
    bus_.kill();
    bus_.waitForFinished(patience);
}

void PrivateSession::storeKey(const QByteArray &key) {
    runSecretTool({QStringLiteral("store"), QStringLiteral("--label=Fennick test key")}, key);
}

QByteArray PrivateSession::lookUpKey() {
    return runSecretTool({QStringLiteral("lookup")});
}

void PrivateSession::clearKey() {
    runSecretTool({QStringLiteral("clear")});
}

qsizetype PrivateSession::keyCount() {
    return runSecretTool({QStringLiteral("search"), QStringLiteral("--all")}).count("secret = ");
}

void PrivateSession::refuseKeysBeside(const QByteArray &key) {
    runSecretTool({QStringLiteral("store"), QStringLiteral("--label=Fennick test key"),
                   QStringLiteral("--collection=session")},
                  key);
    QDBusConnection bus = QDBusConnection::connectToBus(
        QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), QStringLiteral("collection-removal"));
    const QDBusMessage reply = bus.call(QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.secrets"),
        QStringLiteral("/org/freedesktop/secrets/collection/login"),
        QStringLiteral("org.freedesktop.Secret.Collection"), QStringLiteral("Delete")));
    if (reply.type() == QDBusMessage::ErrorMessage) {
        qFatal("The collection was not deleted: %s", qPrintable(reply.errorMessage()));
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("collection-removal"));
}

void PrivateSession::startBus() {
    bus_.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                               QStringLiteral("--print-address=1")});
    if (!bus_.waitForStarted(patience) || !bus_.waitForReadyRead(patience)) {
        qFatal("dbus-daemon did not start: %s", bus_.readAllStandardError().constData());
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus_.readLine().trimmed());
}

void PrivateSession::startSecretStore() {
    secretStore_.start(
        QStringLiteral("gnome-keyring-daemon"),
        {QStringLiteral("--foreground"), QStringLiteral("--unlock"), QStringLiteral("--components=secrets")});
    secretStore_.write("password");
    secretStore_.closeWriteChannel();
    const QString connectionName = QStringLiteral("session-probe");
    {
        const QDBusConnection connection = QDBusConnection::connectToBus(
            QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), connectionName);
        const bool isReady = waitUntil([&connection] {
            return connection.interface()
                ->isServiceRegistered(QStringLiteral("org.freedesktop.secrets"))
                .value();
        });
        if (!isReady) {
            qFatal("The secret store did not start: %s", secretStore_.readAllStandardError().constData());
        }
    }
    QDBusConnection::disconnectFromBus(connectionName);
}

} // namespace fennick::test
