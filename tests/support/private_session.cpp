#include "support/private_session.h"

#include "support/conditions.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace fennick::test {

namespace {

const QStringList keyAttributes = {u"service"_s, u"org.fennick.Fennick"_s, u"account"_s, u"gemini-api-key"_s};

QByteArray runSecretTool(const QStringList &arguments, const QByteArray &input = {}) {
    QProcess tool;
    tool.start(u"secret-tool"_s, arguments + keyAttributes);
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
    runSecretTool({u"store"_s, u"--label=Fennick test key"_s}, key);
}

QByteArray PrivateSession::lookUpKey() {
    return runSecretTool({u"lookup"_s});
}

void PrivateSession::clearKey() {
    runSecretTool({u"clear"_s});
}

qsizetype PrivateSession::keyCount() {
    return runSecretTool({u"search"_s, u"--all"_s}).count("secret = ");
}

void PrivateSession::refuseKeysBeside(const QByteArray &key) {
    runSecretTool({u"store"_s, u"--label=Fennick test key"_s, u"--collection=session"_s}, key);
    QDBusConnection bus = QDBusConnection::connectToBus(
        QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), u"collection-removal"_s);
    const QDBusMessage reply = bus.call(QDBusMessage::createMethodCall(
        u"org.freedesktop.secrets"_s, u"/org/freedesktop/secrets/collection/login"_s,
        u"org.freedesktop.Secret.Collection"_s, u"Delete"_s));
    if (reply.type() == QDBusMessage::ErrorMessage) {
        qFatal("The collection was not deleted: %s", qPrintable(reply.errorMessage()));
    }
    QDBusConnection::disconnectFromBus(u"collection-removal"_s);
}

void PrivateSession::startBus() {
    bus_.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
    if (!bus_.waitForStarted(patience) || !bus_.waitForReadyRead(patience)) {
        qFatal("dbus-daemon did not start: %s", bus_.readAllStandardError().constData());
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus_.readLine().trimmed());
}

void PrivateSession::startSecretStore() {
    secretStore_.start(u"gnome-keyring-daemon"_s,
                       {u"--foreground"_s, u"--unlock"_s, u"--components=secrets"_s});
    secretStore_.write("password");
    secretStore_.closeWriteChannel();
    const QString connectionName = u"session-probe"_s;
    {
        const QDBusConnection connection = QDBusConnection::connectToBus(
            QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), connectionName);
        const bool isReady = waitUntil([&connection] {
            return connection.interface()->isServiceRegistered(u"org.freedesktop.secrets"_s).value();
        });
        if (!isReady) {
            qFatal("The secret store did not start: %s", secretStore_.readAllStandardError().constData());
        }
    }
    QDBusConnection::disconnectFromBus(connectionName);
}

} // namespace fennick::test
