#include "platform/photo_change.h"

#include "platform/file_operations.h"
#include "platform/free_path.h"
#include "platform/own_folder.h"
#include "platform/regular_file.h"
#include "platform/removal_below.h"
#include "text/path_text.h"
#include "text/unsafe_characters.h"

#include <QDir>
#include <QJsonDocument>
#include <QUuid>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

const QString stagingPrefix = u".import-"_s;
const QString journalPrefix = u"importing-"_s;
const QString albumKey = u"album"_s;
const QString stagedKey = u"staged"_s;
const QString targetKey = u"target"_s;
const QString sizeKey = u"size"_s;
const QString numberKey = u"number"_s;
const QString keptKey = u"kept"_s;

constexpr qint64 largestJournal = 16'000'000; // bytes, which is a document of some fifty thousand pages

QString stagingFolder(const QString &library, const QString &id) {
    return joinedPath(library, stagingPrefix + id);
}

QString journalPath(const QString &journalFolder, const QString &id) {
    return joinedPath(journalFolder, journalPrefix + id);
}

QByteArray nameOf(const QString &path) {
    return QFile::encodeName(lastPathComponent(path));
}

// Where an image lies while it is staged: under a number, directly in the folder of its change.
bool isStagedName(const QByteArray &name) {
    return !name.isEmpty() &&
           std::ranges::all_of(name, [](char digit) { return digit >= '0' && digit <= '9'; });
}

bool isStagedPath(const QString &path, const QString &staging) {
    return parentFolder(path) == staging && isStagedName(nameOf(path));
}

// Removes the very file that was moved there: one that is not, or has another size, is somebody else's.
void takeBackMove(const QJsonObject &entry, const QString &library, const QString &staging) {
    const QString staged = entry.value(stagedKey).toString();
    const QString target = entry.value(targetKey).toString();
    if (!isStagedPath(staged, staging) || !isLexicallyBelow(target, library) || isTaken(staged)) {
        return;
    }
    bool isNumber = false;
    const quint64 number = entry.value(numberKey).toString().toULongLong(&isNumber);
    if (isNumber) {
        removeFileBelow(library, target, number, entry.value(sizeKey).toInteger(-1));
    }
}

// Only while it holds nothing but its title.
void takeBackAlbum(const QString &path, const QString &library) {
    if (!isLexicallyBelow(path, library) || parentFolder(path) != library) {
        return;
    }
    removeFolderBelow(library, path, [](const QByteArrayList &content) {
        const QByteArrayList title{QFile::encodeName(albumTitleFile)};
        return content == title ? title : QByteArrayList();
    });
}

// The copies that were not moved, and their folder unless somebody has put something else there.
void removeStaging(const QString &library, const QString &staging) {
    removeFolderBelow(library, staging, [](QByteArrayList content) {
        content.removeIf([](const QByteArray &name) { return !isStagedName(name); });
        return content;
    });
}

QList<QJsonObject> entriesOf(const QString &journal) {
    FileToRead wanted(journal);
    wanted.mostBytes = largestJournal;
    const OpenedFile file = openRegularFile(wanted);
    const auto content = file ? readWhole(**file) : std::unexpected(file.error());
    QList<QJsonObject> entries;
    if (content) {
        for (const QByteArray &line : content->split('\n')) {
            entries.append(QJsonDocument::fromJson(line).object());
        }
    }
    return entries;
}

void undo(const QString &journal, const QString &library, const QString &staging) {
    const QList<QJsonObject> entries = entriesOf(journal);
    if (std::ranges::any_of(entries, [](const QJsonObject &entry) { return entry.contains(keptKey); })) {
        return;
    }
    for (const QJsonObject &entry : entries) {
        takeBackMove(entry, library, staging);
    }
    for (const QJsonObject &entry : entries) {
        takeBackAlbum(entry.value(albumKey).toString(), library);
    }
}

} // namespace

void PhotoChange::undoInterrupted(const QString &library, const QString &journalFolder) {
    const QDir folder(journalFolder);
    const QStringList names =
        folder.entryList({journalPrefix + u'*'}, QDir::Files | QDir::System | QDir::Hidden);
    for (const QString &name : names) {
        const QString id = name.mid(journalPrefix.size());
        const QString staging = stagingFolder(library, id);
        undo(journalPath(journalFolder, id), library, staging);
        removeStaging(library, staging);
        QFile::remove(journalPath(journalFolder, id));
    }
}

PhotoChange::PhotoChange(const QString &library, const QString &journalFolder)
    : PhotoChange(library, journalFolder, QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

PhotoChange::PhotoChange(const QString &library, const QString &journalFolder, const QString &id)
    : library_(library)
    , staging_(stagingFolder(library, id))
    , journal_(journalPath(journalFolder, id)) {}

PhotoChange::~PhotoChange() {
    if (!journal_.isOpen()) {
        return; // nothing was begun
    }
    if (isKept_) {
        // First of all: from here on the change is complete, whenever the program ends.
        // If the journal cannot be written, only a crash before its removal would take the change back.
        std::ignore = record({{keptKey, true}});
    } else {
        undo(journal_.fileName(), library_, staging_);
    }
    removeStaging(library_, staging_);
    journal_.remove();
}

std::expected<void, FileProblem> PhotoChange::stage(const QStringList &imagePaths) {
    if (!journal_.open(QIODevice::WriteOnly | QIODevice::NewOnly,
                       QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
        return std::unexpected(FileProblem::ofSystem(journal_.errorString()));
    }
    if (const auto made = FileOperations::makeFolder(library_); !made) {
        return made;
    }
    if (const auto made = createOwnFolder(staging_); !made) {
        return made;
    }
    for (const QString &path : imagePaths) {
        const QString staged = joinedPath(staging_, QString::number(staged_.size()));
        if (const auto copied = FileOperations::copyDurably(path, staged); !copied) {
            return copied;
        }
        staged_.append({staged, lastPathComponent(path)});
    }
    return {};
}

std::optional<QString> PhotoChange::makeAlbum(const QString &title) {
    const QString safe = withoutUnsafeCharacters(title).trimmed();
    const QString stem = safe.isEmpty() || safe.startsWith(u'.') ? u"Album"_s : safe;
    const QString path = freePath(library_, stem, {});
    if (!record({{albumKey, path}}) || !QDir().mkdir(path)) {
        return std::nullopt;
    }
    QFile file(joinedPath(path, albumTitleFile));
    const QByteArray content = title.toUtf8();
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(content) != content.size() ||
        !file.flush()) {
        file.close();
        takeBackAlbum(path, library_);
        return std::nullopt;
    }
    return path;
}

std::expected<void, FileProblem> PhotoChange::moveInto(const QString &folder) {
    for (const StagedImage &image : std::as_const(staged_)) {
        if (const auto moved = moveUnderFreeName(image, folder); !moved) {
            return moved;
        }
    }
    return {};
}

std::expected<void, FileProblem> PhotoChange::moveUnderFreeName(const StagedImage &image,
                                                                const QString &folder) {
    const FileState state = fileStateAt(image.path);
    const QString fileNumber = QString::number(state.identity.number);
    while (true) {
        const QString target = freePath(folder, image.name);
        if (!record({{stagedKey, image.path},
                     {targetKey, target},
                     {sizeKey, state.size},
                     {numberKey, fileNumber}})) {
            return std::unexpected(FileProblem::ofSystem(journal_.errorString()));
        }
        const auto moved = FileOperations::moveWithoutReplacing(image.path, target);
        if (moved || !isTaken(target)) { // otherwise another program has taken the name meanwhile
            return moved;
        }
    }
}

// On the disk when this returns: what is done afterwards can be taken back whatever happens.
bool PhotoChange::record(const QJsonObject &entry) {
    const QByteArray line = QJsonDocument(entry).toJson(QJsonDocument::Compact) + '\n';
    return journal_.write(line) == line.size() && FileOperations::synchronise(journal_);
}

} // namespace fennick
