#include "platform/file_operations.h"
#include "platform/photo_library.h"
#include "text/numbered_name.h"
#include "text/path_text.h"
#include "text/unsafe_characters.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QUuid>

#include <cerrno>
#include <cstring>

// A folder below the user's Pictures folder; each album is a sub-folder with its exact title in a file
// ".album", because file systems refuse some characters that titles have.
namespace fennick::PhotoLibrary {

namespace {

const QString titleFileName = QStringLiteral(".album");

QString systemError() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

QString titleOf(const QString &albumFolder) {
    QFile file(albumFolder + u'/' + titleFileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Moves without ever replacing a file: a name that is taken gets a number.
std::expected<QString, QString> moveUnderFreeName(const QString &source, const QString &targetFolder,
                                                  const QString &name) {
    const QString stem = nameWithoutExtension(name);
    const QString extension = pathExtension(name);
    QString target = targetFolder + u'/' + name;
    for (int number = 2;; ++number) {
        const auto moved = FileOperations::moveWithoutReplacing(source, target);
        if (moved) {
            return target;
        }
        if (!QFileInfo::exists(target)) {
            return std::unexpected(moved.error());
        }
        target = targetFolder + u'/' + numberedName(stem, extension, number);
    }
}

// A new folder with the title in it, named after the title less the characters that some system refuses.
std::optional<Album> makeAlbum(const QString &title) {
    const QString safe = withoutUnsafeCharacters(title).trimmed();
    const QString stem = safe.isEmpty() || safe.startsWith(u'.') ? QStringLiteral("Album") : safe;
    QString path = folder() + u'/' + stem;
    for (int number = 2; QFileInfo::exists(path); ++number) {
        path = folder() + u'/' + numberedName(stem, {}, number);
    }
    if (!QDir().mkdir(path)) {
        return std::nullopt;
    }
    QFile file(path + u'/' + titleFileName);
    const QByteArray content = title.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush()) {
        file.close();
        QDir(path).removeRecursively();
        return std::nullopt;
    }
    return Album{path};
}

// One change in the making. Until `keep`, its destruction takes back everything that was done.
class Transaction {
public:
    Transaction()
        : staging_(folder() + QStringLiteral("/.import-") +
                   QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

    ~Transaction() {
        if (!isKept_) {
            for (const QString &path : std::as_const(added_)) {
                QFile::remove(path);
            }
            if (!newAlbumFolder_.isEmpty()) {
                QDir(newAlbumFolder_).removeRecursively();
            }
        }
        QDir(staging_).removeRecursively();
    }

    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    // Copies the images into the library's own file system, where moving them into place cannot fail halfway
    // through a file.
    std::expected<void, QString> stage(const QStringList &imagePaths) {
        if (!QDir().mkpath(staging_)) {
            return std::unexpected(systemError());
        }
        for (const QString &path : imagePaths) {
            const QString staged = staging_ + u'/' + QString::number(staged_.size());
            if (const auto copied = FileOperations::copyDurably(path, staged); !copied) {
                return copied;
            }
            staged_.append({staged, lastPathComponent(path)});
        }
        return {};
    }

    QString targetFolder(const Additions &additions) {
        if (additions.album) {
            return additions.album->folder;
        }
        if (additions.newAlbumTitle) {
            if (const auto album = makeAlbum(*additions.newAlbumTitle)) {
                newAlbumFolder_ = album->folder;
                return album->folder;
            }
        }
        return folder();
    }

    std::expected<void, QString> moveInto(const QString &targetFolder) {
        for (const auto &[staged, name] : std::as_const(staged_)) {
            const auto target = moveUnderFreeName(staged, targetFolder, name);
            if (!target) {
                return std::unexpected(target.error());
            }
            added_.append(*target);
        }
        return {};
    }

    void keep() { isKept_ = true; }

private:
    QString staging_;
    QList<std::pair<QString, QString>> staged_; // path in the staging folder, name in the library
    QStringList added_;
    QString newAlbumFolder_;
    bool isKept_ = false;
};

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

std::expected<void, QString> performChanges(const Additions &additions) {
    Transaction transaction;
    if (const auto staged = transaction.stage(additions.imagePaths); !staged) {
        return staged;
    }
    if (const auto moved = transaction.moveInto(transaction.targetFolder(additions)); !moved) {
        return moved;
    }
    transaction.keep();
    return {};
}

} // namespace fennick::PhotoLibrary
