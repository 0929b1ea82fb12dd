#include "support/notification_service.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace fennick::test {

namespace {

const QString service = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;
const QString connectionName = u"notification-service"_s;

} // namespace

NotificationService::NotificationService(QStringList capabilities)
    : connection_(QDBusConnection::connectToBus(QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")),
                                                connectionName))
    , capabilities_(std::move(capabilities)) {
    if (!connection_.registerVirtualObject(path, this) || !connection_.registerService(service)) {
        qFatal("No notification service can be offered.");
    }
}

NotificationService::~NotificationService() {
    connection_.unregisterService(service);
    connection_.unregisterObject(path);
    QDBusConnection::disconnectFromBus(connectionName);
}

void NotificationService::click(const QString &action) const {
    QDBusMessage invoked = QDBusMessage::createSignal(path, service, u"ActionInvoked"_s);
    invoked.setArguments({static_cast<uint>(notices_.size()), action});
    connection_.send(invoked);
}

QString NotificationService::introspect(const QString &) const {
    return {};
}

bool NotificationService::handleMessage(const QDBusMessage &message, const QDBusConnection &connection) {
    const QVariantList arguments = message.arguments();
    if (message.member() == u"GetCapabilities") {
        connection.send(message.createReply(QVariant(capabilities_)));
        return true;
    }
    if (message.member() == u"CloseNotification") {
        ++closed_;
        connection.send(message.createReply());
        return true;
    }
    if (message.member() != u"Notify" || arguments.size() != 8) {
        return false;
    }
    notices_.append({arguments[1].toUInt(), arguments[2].toString(), arguments[3].toString(),
                     arguments[4].toString(), arguments[5].toStringList()});
    connection.send(message.createReply(static_cast<uint>(notices_.size())));
    return true;
}

} // namespace fennick::test
