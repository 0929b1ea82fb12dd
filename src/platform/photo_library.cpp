#include "platform/photo_library.h"

#include "platform/photo_change.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

// A folder below the user's Pictures folder; each album is a sub-folder with its exact title in a file
// ".album", because file systems refuse some characters that titles have.
namespace fennick::PhotoLibrary {

namespace {

constexpr qint64 longestTitle = 4096; // bytes

// Absent where there is no title of ours: the library may hold anything, and be written by others.
std::optional<QString> titleOf(const QString &albumFolder) {
    FileToRead wanted(joinedPath(albumFolder, albumTitleFile));
    wanted.folder = folder();
    wanted.mostBytes = longestTitle;
    const OpenedFile file = openRegularFile(wanted);
    const auto title = file ? readWhole(**file) : std::unexpected(file.error());
    return title ? std::optional(QString::fromUtf8(*title)) : std::nullopt;
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
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation) + u"/Fennick"_s;
}

std::optional<Album> fetchAlbum(const QString &title) {
    const QDir library(folder());
    const QStringList names =
        library.entryList(QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names) {
        const QString path = joinedPath(library.path(), name);
        if (titleOf(path) == title) {
            return Album{path};
        }
    }
    return std::nullopt;
}

std::expected<void, FileProblem> performChanges(const Additions &additions, const QString &journalFolder) {
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
