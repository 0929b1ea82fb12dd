#include "platform/file_operations.h"
#include "text/path_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace fennick::FileOperations {

namespace {

const QString partPrefix = QStringLiteral(".moving-");

QString systemError(int number) {
    return QString::fromLocal8Bit(std::strerror(number));
}

// The system would take a name with a null character for the part before it, and so for another one.
bool isPath(const QString &text) {
    return !text.contains(QChar::Null);
}

// 0 or the error's number. File systems that cannot refuse to replace by themselves (EINVAL) are asked
// whether the target exists first.
int renameWithoutReplacing(const QString &source, const QString &target) {
    const QByteArray from = QFile::encodeName(source);
    const QByteArray to = QFile::encodeName(target);
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL) {
        return errno;
    }
    if (QFileInfo::exists(target)) {
        return EEXIST;
    }
    return std::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

std::expected<void, QString> synchronise(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || fsync(file.handle()) != 0) {
        return std::unexpected(systemError(errno));
    }
    return {};
}

} // namespace

std::expected<void, QString> copyDurably(const QString &source, const QString &target) {
    if (!isPath(target)) {
        return std::unexpected(systemError(EINVAL));
    }
    QFile original(source);
    if (!original.copy(target)) {
        return std::unexpected(original.errorString());
    }
    const auto synchronised = synchronise(target);
    if (!synchronised) {
        QFile::remove(target);
    }
    return synchronised;
}

std::expected<void, QString> moveWithoutReplacing(const QString &source, const QString &target) {
    if (!isPath(target)) {
        return std::unexpected(systemError(EINVAL));
    }
    const int error = renameWithoutReplacing(source, target);
    if (error == 0) {
        return {};
    }
    if (error != EXDEV) {
        return std::unexpected(systemError(error));
    }
    // Under another name first: nobody may take a part of the file for the whole.
    const QString part =
        joinedPath(parentFolder(target), partPrefix + QUuid::createUuid().toString(QUuid::WithoutBraces));
    if (const auto copied = copyDurably(source, part); !copied) {
        return copied;
    }
    if (const int placed = renameWithoutReplacing(part, target); placed != 0) {
        QFile::remove(part);
        return std::unexpected(systemError(placed));
    }
    if (!QFile::remove(source)) {
        QFile::remove(target);
        return std::unexpected(systemError(EACCES));
    }
    return {};
}

void removePartsOfMoves(const QString &folder) {
    const QDir directory(folder);
    const QStringList parts = directory.entryList({partPrefix + u'*'}, QDir::Files | QDir::Hidden);
    for (const QString &part : parts) {
        QFile::remove(joinedPath(folder, part));
    }
}

} // namespace fennick::FileOperations
