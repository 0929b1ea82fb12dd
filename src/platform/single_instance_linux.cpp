#include "platform/application_id.h"
#include "platform/single_instance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

const QString objectPath = u"/org/fennick/Fennick"_s;
const QString applicationInterface = u"org.freedesktop.Application"_s;

// The part of the freedesktop application interface that a second start and a launcher use: `Activate`.
class ApplicationObject : public QDBusVirtualObject {
public:
    explicit ApplicationObject(SingleInstance *instance)
        : QDBusVirtualObject(instance)
        , instance_(instance) {}

    QString introspect(const QString &) const override {
        return u"<interface name=\"org.freedesktop.Application\">"
               "<method name=\"Activate\"><arg type=\"a{sv}\" direction=\"in\"/></method>"
               "</interface>"_s;
    }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        if (message.interface() != applicationInterface || message.member() != u"Activate") {
            return false;
        }
        bus.send(message.createReply());
        Q_EMIT instance_->activationRequested();
        return true;
    }

private:
    SingleInstance *instance_;
};

bool askToShowItself(const QDBusConnection &bus) {
    QDBusMessage activate =
        QDBusMessage::createMethodCall(applicationId, objectPath, applicationInterface, u"Activate"_s);
    activate.setArguments({QVariantMap()});
    return bus.call(activate).type() == QDBusMessage::ReplyMessage;
}

} // namespace

SingleInstance::SingleInstance(QObject *parent)
    : QObject(parent) {}

bool SingleInstance::claim() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return true;
    }
    bus.registerVirtualObject(objectPath, new ApplicationObject(this));
    while (!bus.registerService(applicationId)) {
        const bool hasAnswered = askToShowItself(bus);
        // Right after a crash the ended process may still own the name on the bus; it has no window to show.
        if (hasAnswered || bus.interface()->isServiceRegistered(applicationId)) {
            return false;
        }
    }
    return true;
}

} // namespace fennick
