#include "platform/photo_change_linux.h"
#include "platform/photo_library.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

// A folder below the user's Pictures folder; each album is a sub-folder with its exact title in a file
// ".album", because file systems refuse some characters that titles have.
namespace fennick::PhotoLibrary {

namespace {

QString titleOf(const QString &albumFolder) {
    QFile file(albumFolder + u'/' + albumTitleFile);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString targetFolder(const Additions &additions, PhotoChange &change) {
    if (additions.album) {
        return additions.album->folder;
    }
    if (additions.newAlbumTitle) {
        if (const auto albumFolder = change.makeAlbum(*additions.newAlbumTitle)) {
            return *albumFolder;
        }
    }
    return folder();
}

} // namespace

QString folder() {
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation) + QStringLiteral("/Fennick");
}

std::optional<Album> fetchAlbum(const QString &title) {
    const QDir library(folder());
    const QStringList names = library.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names) {
        const QString path = library.filePath(name);
        if (titleOf(path) == title) {
            return Album{path};
        }
    }
    return std::nullopt;
}

std::expected<void, QString> performChanges(const Additions &additions, const QString &journalFolder) {
    PhotoChange change(folder(), journalFolder);
    if (const auto staged = change.stage(additions.imagePaths); !staged) {
        return staged;
    }
    if (const auto moved = change.moveInto(targetFolder(additions, change)); !moved) {
        return moved;
    }
    change.keep();
    return {};
}

void undoInterruptedChanges(const QString &journalFolder) {
    PhotoChange::undoInterrupted(folder(), journalFolder);
}

} // namespace fennick::PhotoLibrary
