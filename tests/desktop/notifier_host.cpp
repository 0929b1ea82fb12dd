#include "notifier_host.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QVariantMap>

#include <algorithm>

namespace fennick::test {

using namespace Qt::StringLiterals;

namespace {

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;
const QString itemInterface = u"org.kde.StatusNotifierItem"_s;
const QString itemPath = u"/StatusNotifierItem"_s;
const QString menuInterface = u"com.canonical.dbusmenu"_s;

} // namespace

NotifierHost::NotifierHost()
    : bus_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                         u"notifier-host"_s)) {
    if (!bus_.registerObject(watcherPath, this,
                             QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportAllProperties) ||
        !bus_.registerService(watcherService)) {
        qFatal("The host of tray icons cannot be announced");
    }
}

NotifierHost::~NotifierHost() {
    bus_.unregisterService(watcherService);
    bus_.unregisterObject(watcherPath);
    QDBusConnection::disconnectFromBus(u"notifier-host"_s);
}

void NotifierHost::RegisterStatusNotifierItem(const QString &service) {
    item_ = service;
}

QStringList NotifierHost::menuTexts() const {
    QStringList texts;
    const QList<MenuItem> items = menuItems();
    for (const MenuItem &item : items) {
        texts.append(item.text);
    }
    return texts;
}

bool NotifierHost::isEnabled(const QString &text) const {
    const QList<MenuItem> items = menuItems();
    return std::any_of(items.begin(), items.end(),
                       [&text](const MenuItem &item) { return item.text == text && item.isEnabled; });
}

bool NotifierHost::choose(const QString &text) const {
    const QList<MenuItem> items = menuItems();
    const auto item =
        std::find_if(items.begin(), items.end(), [&text](const MenuItem &each) { return each.text == text; });
    if (item == items.end()) {
        return false;
    }
    QDBusMessage event = QDBusMessage::createMethodCall(item_, u"/MenuBar"_s, menuInterface, u"Event"_s);
    event.setArguments(
        {item->id, u"clicked"_s, QVariant::fromValue(QDBusVariant(QString())), static_cast<uint>(0)});
    return bus_.send(event);
}

void NotifierHost::activateIcon() const {
    QDBusMessage activate = QDBusMessage::createMethodCall(item_, itemPath, itemInterface, u"Activate"_s);
    activate.setArguments({0, 0});
    bus_.send(activate);
}

QList<NotifierHost::MenuItem> NotifierHost::menuItems() const {
    QDBusMessage ask = QDBusMessage::createMethodCall(item_, u"/MenuBar"_s, menuInterface, u"GetLayout"_s);
    ask.setArguments({0, -1, QStringList()});
    const QDBusMessage reply = bus_.call(ask);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().size() != 2) {
        return {};
    }
    // The root is (identifier, properties, children); each child is such a structure again, in a variant.
    int rootId = 0;
    QVariantMap rootProperties;
    QList<MenuItem> items;
    const auto root = reply.arguments().at(1).value<QDBusArgument>();
    root.beginStructure();
    root >> rootId >> rootProperties;
    root.beginArray();
    while (!root.atEnd()) {
        QDBusVariant child;
        root >> child;
        const auto fields = child.variant().value<QDBusArgument>();
        MenuItem item{};
        QVariantMap properties;
        fields.beginStructure();
        fields >> item.id >> properties;
        fields.endStructure();
        const bool isSeparator = properties.value(u"type"_s).toString() == u"separator";
        // An underscore marks the access key.
        item.text = isSeparator ? u"-"_s : properties.value(u"label"_s).toString().remove(u'_');
        item.isEnabled = properties.value(u"enabled"_s, true).toBool();
        items.append(item);
    }
    root.endArray();
    root.endStructure();
    return items;
}

} // namespace fennick::test
