#include "platform/application_id.h"
#include "platform/launcher_progress.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

// Docks and task bars of several desktops listen to this signal of Unity's launcher.
void sendToLauncher(const QVariantMap &properties) {
    QDBusMessage update = QDBusMessage::createSignal(u"/org/fennick/Fennick"_s,
                                                     u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    update.setArguments({u"application://"_s + applicationId + u".desktop"_s, properties});
    QDBusConnection::sessionBus().send(update);
}

} // namespace

void showLauncherProgress(double fraction) {
    sendToLauncher({{u"progress"_s, fraction}, {u"progress-visible"_s, true}});
}

void hideLauncherProgress() {
    sendToLauncher({{u"progress-visible"_s, false}});
}

} // namespace fennick
