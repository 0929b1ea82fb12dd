#include "platform/application_id.h"
#include "platform/login_service.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

// XDG autostart: a desktop file in the user's autostart folder.
namespace fennick::LoginService {

namespace {

QString autostartFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/autostart"_s;
}

QString autostartFile() {
    return autostartFolder() + u'/' + applicationId + u".desktop"_s;
}

// A path as one argument of an Exec line: quoted, with the characters escaped that the desktop entry format
// reserves inside quotes; the backslashes are doubled once more because the value is a string as well.
QString quotedArgument(const QString &path) {
    QString quoted;
    for (const QChar character : path) {
        if (character == u'\\') {
            quoted += u"\\\\\\\\"_s;
        } else if (character == u'"' || character == u'`' || character == u'$') {
            quoted += u"\\\\"_s + character;
        } else if (character == u'%') {
            quoted += u"%%"_s;
        } else {
            quoted += character;
        }
    }
    return u'"' + quoted + u'"';
}

QByteArray desktopEntry() {
    return u"[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Fennick\n"
           "Icon=%1\n"
           "Exec=%2\n"
           "X-GNOME-Autostart-enabled=true\n"_s
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
    const bool isSwitchedOff =
        lines.contains("Hidden=true"_ba) || lines.contains("X-GNOME-Autostart-enabled=false"_ba);
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
