#include "platform/application_id.h"
#include "platform/login_service.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

// XDG autostart: a desktop file in the user's autostart folder.
namespace fennick::LoginService {

namespace {

QString autostartFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart");
}

QString autostartFile() {
    return autostartFolder() + u'/' + applicationId + QStringLiteral(".desktop");
}

// A path as one argument of an Exec line: quoted, with the characters escaped that the desktop entry format
// reserves inside quotes; the backslashes are doubled once more because the value is a string as well.
QString quotedArgument(const QString &path) {
    QString quoted;
    for (const QChar character : path) {
        if (character == u'\\') {
            quoted += QStringLiteral("\\\\\\\\");
        } else if (character == u'"' || character == u'`' || character == u'$') {
            quoted += QStringLiteral("\\\\") + character;
        } else if (character == u'%') {
            quoted += QStringLiteral("%%");
        } else {
            quoted += character;
        }
    }
    return u'"' + quoted + u'"';
}

QByteArray desktopEntry() {
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Fennick\n"
                          "Icon=%1\n"
                          "Exec=%2\n"
                          "X-GNOME-Autostart-enabled=true\n")
        .arg(applicationId, quotedArgument(QCoreApplication::applicationFilePath()))
        .toUtf8();
}

} // namespace

Status status() {
    QFile file(autostartFile());
    if (!file.open(QIODevice::ReadOnly)) {
        return Status::notRegistered;
    }
    const QList<QByteArray> lines = file.readAll().split('\n');
    const bool isSwitchedOff = lines.contains(QByteArrayLiteral("Hidden=true")) ||
                               lines.contains(QByteArrayLiteral("X-GNOME-Autostart-enabled=false"));
    return isSwitchedOff ? Status::notRegistered : Status::enabled;
}

bool registerApplication() {
    if (!QDir().mkpath(autostartFolder())) {
        return false;
    }
    QSaveFile file(autostartFile());
    const QByteArray entry = desktopEntry();
    return file.open(QIODevice::WriteOnly) && file.write(entry) == entry.size() && file.commit();
}

bool unregisterApplication() {
    return QFile::remove(autostartFile());
}

} // namespace fennick::LoginService
