#include "platform/copied_entries_linux.h"
#include "platform/descriptor_linux.h"
#include "platform/file_operations.h"
#include "platform/free_path.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QUuid>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace fennick::FileOperations {

namespace {

using Result = std::expected<void, FileProblem>;

const QByteArray partPrefix = ".moving-"_ba;

Result resultOf(int error) {
    return error == 0 ? Result() : std::unexpected(FileProblem::ofErrorNumber(error));
}

// The system would take a name with a null character for the part before it, and so for another one.
bool isPath(const QString &text) {
    return text.contains(u'/') && !text.contains(QChar::Null);
}

QByteArray nameOf(const QString &path) {
    return QFile::encodeName(lastPathComponent(path));
}

// Names the source of the copy, so that the next start can check whether it still exists.
QByteArray partPrefixOf(const QString &source) {
    return partPrefix + QCryptographicHash::hash(source.toUtf8(), QCryptographicHash::Sha1).toHex() + '-';
}

// 0 or the error's number. File systems that cannot refuse to replace by themselves (EINVAL) are asked
// whether the target exists first.
int renameWithoutReplacing(const Place &from, const Place &to) {
    if (::renameat2(from.folder.number(), from.name.constData(), to.folder.number(), to.name.constData(),
                    RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL) {
        return errno;
    }
    if (fileStateIn(to.folder, to.name).kind != FileKind::missing) {
        return EEXIST;
    }
    return ::renameat(from.folder.number(), from.name.constData(), to.folder.number(), to.name.constData()) ==
                   0
               ? 0
               : errno;
}

// Under another name first, so that no program takes an incomplete file for the whole.
int moveToOtherFileSystem(const Place &from, const Place &to, const QByteArray &partName) {
    const Place part{to.folder, partName};
    CopiedEntries copied;
    int error = copied.copy(from, part);
    if (error == 0) {
        error = renameWithoutReplacing(part, to);
    }
    if (error != 0) {
        removeEntry(part);
        return error;
    }
    error = synchroniseFolder(to.folder);
    if (error == 0) {
        error = copied.removeSource(from);
    }
    if (error != 0 && !copied.hasRemovedAny()) {
        removeEntry(to);
        return error;
    }
    return 0; // what is left of the source, if anything, has come to it since
}

} // namespace

Result copyDurably(const QString &source, const QString &target) {
    if (!isPath(target)) {
        return resultOf(EINVAL);
    }
    FileToRead wanted(source);
    wanted.mostBytes = std::numeric_limits<qint64>::max();
    const OpenedFile original = openRegularFile(wanted);
    if (!original) {
        return std::unexpected(original.error());
    }
    const Descriptor folder = openParent({}, target);
    const Place place{folder, nameOf(target)};
    int error = folder.isOpen() ? copyOpenFile((*original)->handle(), place) : errno;
    if (error == 0) {
        error = synchroniseFolder(folder);
        if (error != 0) {
            removeEntry(place);
        }
    }
    return resultOf(error);
}

Result replaceContent(const QString &path, const QByteArray &content) {
    const QString behindLinks = QFileInfo(path).canonicalFilePath(); // empty when nothing is there
    const QString target = behindLinks.isEmpty() ? path : behindLinks;
    const Descriptor folder = openParent({}, target);
    if (!folder.isOpen()) {
        return resultOf(errno);
    }
    const Place part{folder, ".writing-" + QUuid::createUuid().toByteArray(QUuid::Id128)};
    int error = writeNewFile(part, content);
    if (error == 0 && ::renameat(folder.number(), part.name.constData(), folder.number(),
                                 nameOf(target).constData()) != 0) {
        error = errno;
        removeEntry(part);
    }
    return resultOf(error);
}

Result moveWithoutReplacing(const QString &source, const QString &target, const QString &folder) {
    if (!isPath(source) || !isPath(target)) {
        return resultOf(EINVAL);
    }
    const Descriptor sourceFolder = openParent(folder, source);
    if (!sourceFolder.isOpen()) {
        return resultOf(errno);
    }
    const Descriptor targetFolder = openParent({}, target);
    if (!targetFolder.isOpen()) {
        return resultOf(errno);
    }
    const Place from{sourceFolder, nameOf(source)};
    const Place to{targetFolder, nameOf(target)};
    int error = renameWithoutReplacing(from, to);
    if (error == EXDEV) {
        const QByteArray part = partPrefixOf(source) + QUuid::createUuid().toByteArray(QUuid::Id128);
        error = moveToOtherFileSystem(from, to, part);
    }
    return resultOf(error);
}

void finishInterruptedMoves(const QString &folder, const QStringList &sources) {
    const Descriptor directory(
        ::open(QFile::encodeName(folder).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!directory.isOpen()) {
        return;
    }
    const QByteArrayList names = namesIn(directory);
    for (const QString &source : sources) {
        for (const QByteArray &name : names) {
            if (!name.startsWith(partPrefixOf(source))) {
                continue;
            }
            const Place part{directory, name};
            if (isTaken(source)) {
                removeEntry(part);
                continue;
            }
            // The only copy: the source goes only after its copy is complete.
            const QString free = lastPathComponent(freePath(folder, lastPathComponent(source)));
            std::ignore = renameWithoutReplacing(part, {directory, QFile::encodeName(free)});
        }
    }
}

Result makeFolder(const QString &path) {
    QStringList missing;
    for (QString folder = QDir::cleanPath(path); !isTaken(folder); folder = parentFolder(folder)) {
        missing.prepend(folder);
    }
    for (const QString &folder : std::as_const(missing)) {
        constexpr mode_t asTheUserWishes = 0777;
        if (::mkdir(QFile::encodeName(folder).constData(), asTheUserWishes) != 0 && errno != EEXIST) {
            return resultOf(errno);
        }
        if (const int error = synchroniseFolder(openParent({}, folder)); error != 0) {
            return resultOf(error);
        }
    }
    struct stat status{};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return resultOf(errno);
    }
    return resultOf(S_ISDIR(status.st_mode) ? 0 : ENOTDIR);
}

bool synchronise(QFile &file) {
    return file.flush() && ::fsync(file.handle()) == 0;
}

} // namespace fennick::FileOperations
