#include "conversion/private_folder.h"

#include "platform/own_folder.h"
#include "text/path_text.h"

#include <QDir>
#include <QUuid>

#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

// QDir::tempPath() alone is empty when TMPDIR names a folder that does not exist yet.
QString temporaryFolder() {
    const QString named = qEnvironmentVariable("TMPDIR");
    return named.isEmpty() ? QDir::tempPath() : QDir(named).absolutePath();
}

} // namespace

std::expected<QString, FileProblem> createPrivateFolder() {
    const QString temporary = temporaryFolder();
    std::error_code error;
    std::filesystem::create_directories(temporary.toStdU16String(), error);
    if (error) {
        return std::unexpected(FileProblem::ofSystem(QString::fromLocal8Bit(error.message())));
    }
    const auto parent = ownFolder(joinedPath(temporary, u"FennickJPEG"_s));
    if (!parent) {
        return parent;
    }
    QString folder = joinedPath(*parent, QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
    if (const auto created = createOwnFolder(folder); !created) {
        return std::unexpected(created.error());
    }
    return folder;
}

} // namespace fennick
