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
    reveal(QStringList{path});
}

void reveal(const QStringList &paths) {
    QStringList addresses;
    for (const QString &path : paths) {
        addresses.append(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
    }
    QDBusMessage showItems =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    showItems.setArguments({addresses, QString()});
    auto *const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(showItems));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [paths, answer] {
        if (answer->isError() && !paths.isEmpty()) {
            openFolderOf(paths.first());
        }
        answer->deleteLater();
    });
}

void open(const QString &path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace fennick::FileManager
