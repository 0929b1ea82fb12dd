#include "conversion/private_folder.h"

#include "text/path_text.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

std::unexpected<QString> failure(int errorNumber) {
    return std::unexpected(QString::fromStdString(std::generic_category().message(errorNumber)));
}

// QDir::tempPath() alone is empty when TMPDIR names a folder that does not exist yet.
QString temporaryFolder() {
    const QString named = qEnvironmentVariable("TMPDIR");
    return named.isEmpty() ? QDir::tempPath() : QDir(named).absolutePath();
}

// 0 or the system's error number. mkdir(2), as the folder must never exist with wider permissions.
int createOwnerOnly(const QByteArray &path) {
    return ::mkdir(path.constData(), S_IRWXU) == 0 ? 0 : errno;
}

// In a temporary directory shared by all users, somebody else's folder of that name (or a link) would let
// them exchange what is written below it.
bool isOwnFolder(const QByteArray &path) {
    struct stat status{};
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
}

// The folder `path`, or, where another user has it, one beside it that carries the user's number.
std::expected<QString, QString> ownFolder(const QString &path) {
    const QString fallback = path + u'-' + QString::number(::geteuid());
    for (const QString &candidate : {path, fallback}) {
        const QByteArray nativeCandidate = QFile::encodeName(candidate);
        if (const int problem = createOwnerOnly(nativeCandidate); problem != 0 && problem != EEXIST) {
            return failure(problem);
        }
        if (isOwnFolder(nativeCandidate)) {
            return candidate;
        }
    }
    return failure(EPERM);
}

} // namespace

std::expected<QString, QString> createPrivateFolder() {
    const QString temporary = temporaryFolder();
    std::error_code error;
    std::filesystem::create_directories(temporary.toStdU16String(), error);
    if (error) {
        return failure(error.value());
    }

    const auto parent = ownFolder(joinedPath(temporary, u"FennickJPEG"_s));
    if (!parent) {
        return parent;
    }
    QString folder = joinedPath(*parent, QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
    if (const int problem = createOwnerOnly(QFile::encodeName(folder)); problem != 0) {
        return failure(problem);
    }
    return folder;
}

} // namespace fennick
