#include "platform/application_id.h"
#include "platform/launcher_progress.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace fennick {

namespace {

// Docks and task bars of several desktops listen to this signal of Unity's launcher.
void tellLauncher(const QVariantMap &properties) {
    QDBusMessage update = QDBusMessage::createSignal(QStringLiteral("/org/fennick/Fennick"),
                                                     QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                                     QStringLiteral("Update"));
    update.setArguments(
        {QStringLiteral("application://") + applicationId + QStringLiteral(".desktop"), properties});
    QDBusConnection::sessionBus().send(update);
}

} // namespace

void showLauncherProgress(double fraction) {
    tellLauncher({{QStringLiteral("progress"), fraction}, {QStringLiteral("progress-visible"), true}});
}

void hideLauncherProgress() {
    tellLauncher({{QStringLiteral("progress-visible"), false}});
}

} // namespace fennick
