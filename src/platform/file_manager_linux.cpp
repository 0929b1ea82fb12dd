#include "platform/file_manager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace fennick::FileManager {

namespace {

void openFolderOf(const QString &path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).path()));
}

} // namespace

void reveal(const QString &path) {
    QDBusMessage showItems =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    showItems.setArguments({QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)}, QString()});
    auto *const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(showItems));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [path, answer] {
        if (answer->isError()) {
            openFolderOf(path);
        }
        answer->deleteLater();
    });
}

void open(const QString &path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace fennick::FileManager
