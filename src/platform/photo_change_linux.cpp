#include "platform/photo_change_linux.h"

#include "platform/file_operations.h"
#include "text/numbered_name.h"
#include "text/path_text.h"
#include "text/unsafe_characters.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QUuid>

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace fennick {

namespace {

const QString stagingPrefix = QStringLiteral(".import-");
const QString journalName = QStringLiteral("journal");
const QString albumKey = QStringLiteral("album");
const QString stagedKey = QStringLiteral("staged");
const QString targetKey = QStringLiteral("target");
const QString sizeKey = QStringLiteral("size");

QString systemError() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

// A file of another size has been put there by somebody else since.
void takeBackMove(const QJsonObject &entry) {
    const QFileInfo target(entry.value(targetKey).toString());
    if (!QFileInfo::exists(entry.value(stagedKey).toString()) && target.isFile() &&
        target.size() == entry.value(sizeKey).toInteger()) {
        QFile::remove(target.filePath());
    }
}

// Only while it holds nothing but its title.
void takeBackAlbum(const QString &folder) {
    const QDir album(folder);
    const QStringList content =
        album.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    if (content == QStringList{albumTitleFile} || content.isEmpty()) {
        QFile::remove(album.filePath(albumTitleFile));
        QDir().rmdir(folder);
    }
}

void undo(const QString &staging) {
    QFile journal(staging + u'/' + journalName);
    QStringList albums;
    if (journal.open(QIODevice::ReadOnly)) {
        while (!journal.atEnd()) {
            const QJsonObject entry = QJsonDocument::fromJson(journal.readLine()).object();
            if (entry.contains(albumKey)) {
                albums.append(entry.value(albumKey).toString());
            } else {
                takeBackMove(entry);
            }
        }
    }
    for (const QString &album : std::as_const(albums)) {
        takeBackAlbum(album);
    }
}

} // namespace

void PhotoChange::undoInterrupted(const QString &library) {
    const QDir folder(library);
    const QStringList names =
        folder.entryList({stagingPrefix + u'*'}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString &name : names) {
        undo(folder.filePath(name));
        QDir(folder.filePath(name)).removeRecursively();
    }
}

PhotoChange::PhotoChange(const QString &library)
    : library_(library)
    , staging_(library + u'/' + stagingPrefix + QUuid::createUuid().toString(QUuid::WithoutBraces))
    , journal_(staging_ + u'/' + journalName) {}

PhotoChange::~PhotoChange() {
    journal_.close();
    if (isKept_) {
        // Without its journal first: the change is complete, whenever the program ends.
        journal_.remove();
    } else {
        undo(staging_);
    }
    QDir(staging_).removeRecursively();
}

std::expected<void, QString> PhotoChange::stage(const QStringList &imagePaths) {
    if (!QDir().mkpath(staging_) || !journal_.open(QIODevice::WriteOnly)) {
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

std::optional<QString> PhotoChange::makeAlbum(const QString &title) {
    const QString safe = withoutUnsafeCharacters(title).trimmed();
    const QString stem = safe.isEmpty() || safe.startsWith(u'.') ? QStringLiteral("Album") : safe;
    QString path = library_ + u'/' + stem;
    for (int number = 2; QFileInfo::exists(path); ++number) {
        path = library_ + u'/' + numberedName(stem, {}, number);
    }
    if (!record({{albumKey, path}}) || !QDir().mkdir(path)) {
        return std::nullopt;
    }
    QFile file(path + u'/' + albumTitleFile);
    const QByteArray content = title.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush()) {
        file.close();
        takeBackAlbum(path);
        return std::nullopt;
    }
    return path;
}

std::expected<void, QString> PhotoChange::moveInto(const QString &folder) {
    for (const StagedImage &image : std::as_const(staged_)) {
        if (const auto moved = moveUnderFreeName(image, folder); !moved) {
            return moved;
        }
    }
    return {};
}

std::expected<void, QString> PhotoChange::moveUnderFreeName(const StagedImage &image, const QString &folder) {
    const QString stem = nameWithoutExtension(image.name);
    const QString extension = pathExtension(image.name);
    const qint64 size = QFileInfo(image.path).size();
    QString target = folder + u'/' + image.name;
    for (int number = 2;; ++number) {
        if (!QFileInfo::exists(target)) {
            if (!record({{stagedKey, image.path}, {targetKey, target}, {sizeKey, size}})) {
                return std::unexpected(journal_.errorString());
            }
            const auto moved = FileOperations::moveWithoutReplacing(image.path, target);
            if (moved || !QFileInfo::exists(target)) {
                return moved;
            }
        }
        target = folder + u'/' + numberedName(stem, extension, number);
    }
}

// On the disk when this returns: what is done afterwards can be taken back whatever happens.
bool PhotoChange::record(const QJsonObject &entry) {
    const QByteArray line = QJsonDocument(entry).toJson(QJsonDocument::Compact) + '\n';
    return journal_.write(line) == line.size() && journal_.flush() && ::fsync(journal_.handle()) == 0;
}

} // namespace fennick
