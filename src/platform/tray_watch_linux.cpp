#include "platform/tray_watch.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

// A tray is either a service on the session bus or, older, a window of the panel's. Qt listens to the end of
// that window; its events pass here.
class TrayWatch : public QObject, public QAbstractNativeEventFilter {
public:
    TrayWatch(QObject *owner, std::function<void()> mayBeGone)
        : QObject(owner)
        , mayBeGone_(std::move(mayBeGone))
        , service_(u"org.kde.StatusNotifierWatcher"_s, QDBusConnection::sessionBus(),
                   QDBusServiceWatcher::WatchForUnregistration) {
        connect(&service_, &QDBusServiceWatcher::serviceUnregistered, this, mayBeGone_);
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *) override {
        if (type == "xcb_generic_event_t") {
            const auto kind = static_cast<const xcb_generic_event_t *>(message)->response_type & 0x7f;
            if (kind == XCB_DESTROY_NOTIFY) {
                QMetaObject::invokeMethod(this, mayBeGone_, Qt::QueuedConnection);
            }
        }
        return false;
    }

private:
    std::function<void()> mayBeGone_;
    QDBusServiceWatcher service_;
};

} // namespace

void watchTray(QObject *owner, std::function<void()> mayBeGone) {
    new TrayWatch(owner, std::move(mayBeGone));
}

} // namespace fennick
