#include "accessible.h"

#include "support/conditions.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QFileInfo>

namespace fennick::test {

using namespace Qt::StringLiterals;

namespace {

const QString launcherPath = u"/usr/libexec/at-spi-bus-launcher"_s;
const QString connectionName = u"accessibility"_s;
const QString accessibleInterface = u"org.a11y.atspi.Accessible"_s;

QString busAddress() {
    const QDBusMessage ask = QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s,
                                                            u"org.a11y.Bus"_s, u"GetAddress"_s);
    const QString probe = u"accessibility-probe"_s;
    const QDBusReply<QString> reply =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), probe).call(ask);
    QDBusConnection::disconnectFromBus(probe);
    return reply.value();
}

} // namespace

bool AccessibilityBus::isInstalled() {
    return QFileInfo(launcherPath).isExecutable();
}

AccessibilityBus::AccessibilityBus() {
    launcher_.start(launcherPath, {u"--launch-immediately"_s});
    if (!waitUntil([] { return !busAddress().isEmpty(); })) {
        qFatal("The accessibility bus did not start: %s", launcher_.readAllStandardError().constData());
    }
    bus_ = QDBusConnection::connectToBus(busAddress(), connectionName);
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
}

AccessibilityBus::~AccessibilityBus() {
    bus_.reset();
    QDBusConnection::disconnectFromBus(connectionName);
    launcher_.terminate(); // not killed: it ends the bus first, which is a process of its own
    launcher_.waitForFinished(patience);
}

QList<Accessible> AccessibilityBus::elements(const QString &windowTitle) const {
    QList<Accessible> found;
    const auto programs = children(u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s);
    for (const Accessible &program : programs) {
        const auto windows = children(program.service, program.path);
        for (const Accessible &window : windows) {
            if (window.name == windowTitle) {
                collect(window, found);
            }
        }
    }
    return found;
}

bool AccessibilityBus::grabFocus(const Accessible &element) const {
    const QDBusReply<bool> reply = bus_->call(QDBusMessage::createMethodCall(
        element.service, element.path, u"org.a11y.atspi.Component"_s, u"GrabFocus"_s));
    return reply.value();
}

bool AccessibilityBus::isShowing(const Accessible &element) const {
    return hasState(element, 25);
}

bool AccessibilityBus::hasFocus(const Accessible &element) const {
    return hasState(element, 12);
}

// The states by their numbers in the accessibility interface; those below 32 are told in the first word.
bool AccessibilityBus::hasState(const Accessible &element, int state) const {
    const QDBusReply<QList<quint32>> reply = bus_->call(
        QDBusMessage::createMethodCall(element.service, element.path, accessibleInterface, u"GetState"_s));
    return !reply.value().isEmpty() && (reply.value().first() >> state & 1) != 0;
}

QRect AccessibilityBus::extents(const Accessible &element) const {
    QDBusMessage ask = QDBusMessage::createMethodCall(element.service, element.path,
                                                      u"org.a11y.atspi.Component"_s, u"GetExtents"_s);
    ask.setArguments({0U}); // of the screen
    const QDBusMessage reply = bus_->call(ask);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        return {};
    }
    const auto rectangle = reply.arguments().first().value<QDBusArgument>();
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    rectangle.beginStructure();
    rectangle >> left >> top >> width >> height;
    rectangle.endStructure();
    return {left, top, width, height};
}

void AccessibilityBus::collect(const Accessible &element, QList<Accessible> &found) const {
    found.append(element);
    const auto parts = children(element.service, element.path);
    for (const Accessible &part : parts) {
        collect(part, found);
    }
}

QList<Accessible> AccessibilityBus::children(const QString &service, const QString &path) const {
    const QDBusMessage reply =
        bus_->call(QDBusMessage::createMethodCall(service, path, accessibleInterface, u"GetChildren"_s));
    if (reply.type() != QDBusMessage::ReplyMessage) {
        return {};
    }
    QList<Accessible> found;
    const auto references = reply.arguments().first().value<QDBusArgument>();
    references.beginArray();
    while (!references.atEnd()) {
        QString childService;
        QDBusObjectPath childPath;
        references.beginStructure();
        references >> childService >> childPath;
        references.endStructure();
        if (childPath.path() != u"/org/a11y/atspi/null") {
            found.append(describe(childService, childPath.path()));
        }
    }
    references.endArray();
    return found;
}

Accessible AccessibilityBus::describe(const QString &service, const QString &path) const {
    const QDBusReply<QString> role =
        bus_->call(QDBusMessage::createMethodCall(service, path, accessibleInterface, u"GetRoleName"_s));
    return {service, path, role.value(), property(service, path, u"Name"_s)};
}

QString AccessibilityBus::description(const Accessible &element) const {
    return property(element.service, element.path, u"Description"_s);
}

QString AccessibilityBus::property(const QString &service, const QString &path, const QString &name) const {
    QDBusMessage ask =
        QDBusMessage::createMethodCall(service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    ask.setArguments({accessibleInterface, name});
    const QDBusReply<QDBusVariant> value = bus_->call(ask);
    return value.value().variant().toString();
}

} // namespace fennick::test
