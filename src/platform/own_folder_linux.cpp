#include "platform/own_folder.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace fennick {

namespace {

// 0 or the error's number. mkdir(2), because the folder must never exist with wider permissions.
int createOwnerOnly(const QByteArray &path) {
    return ::mkdir(path.constData(), S_IRWXU) == 0 ? 0 : errno;
}

bool isOwnFolder(const QByteArray &path) {
    struct stat status{};
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
}

} // namespace

std::expected<void, FileProblem> createOwnFolder(const QString &path) {
    if (const int error = createOwnerOnly(QFile::encodeName(path)); error != 0) {
        return std::unexpected(FileProblem::ofErrorNumber(error));
    }
    return {};
}

std::expected<QString, FileProblem> ownFolder(const QString &path) {
    const QString fallback = path + u'-' + QString::number(::geteuid());
    for (const QString &candidate : {path, fallback}) {
        const QByteArray nativeCandidate = QFile::encodeName(candidate);
        if (const int error = createOwnerOnly(nativeCandidate); error != 0 && error != EEXIST) {
            return std::unexpected(FileProblem::ofErrorNumber(error));
        }
        if (isOwnFolder(nativeCandidate)) {
            return candidate;
        }
    }
    return std::unexpected(FileProblem::ofErrorNumber(EPERM));
}

} // namespace fennick
