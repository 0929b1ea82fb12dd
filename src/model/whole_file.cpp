#include "model/whole_file.h"

#include "platform/file_operations.h"
#include "platform/free_path.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <limits>
#include <system_error>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Neither needs space nor replaces a file. A second name keeps the first until the new content takes its
// place; file systems that know no second names have it renamed.
std::expected<void, FileProblem> giveName(const QString &path, const QString &name) {
    std::error_code error;
    std::filesystem::create_hard_link(path.toStdU16String(), name.toStdU16String(), error);
    return error ? FileOperations::moveWithoutReplacing(path, name) : std::expected<void, FileProblem>();
}

} // namespace

WholeFile::WholeFile(const QString &path)
    : path_(path) {}

QByteArray WholeFile::content() const {
    FileToRead wanted(QFileInfo(path_).canonicalFilePath()); // the user may keep it elsewhere by a link
    wanted.mostBytes = std::numeric_limits<qint64>::max();
    const OpenedFile file = openRegularFile(wanted);
    return file ? readWhole(**file).value_or(QByteArray()) : QByteArray();
}

void WholeFile::setDamaged() {
    isDamaged_ = QFileInfo::exists(path_);
}

std::expected<void, FileProblem> WholeFile::rewrite(const QByteArray &content) {
    if (isDamaged_) {
        if (auto aside = setAside(); !aside) {
            return aside;
        }
        isDamaged_ = false;
    }
    return FileOperations::replaceContent(path_, content);
}

void WholeFile::remove() {
    QFile::remove(path_);
}

std::expected<void, FileProblem> WholeFile::setAside() const {
    const QString moment = QDateTime::currentDateTime().toString(u"yyyy-MM-ddTHH-mm-ss"_s);
    const QString name = lastPathComponent(path_) + u".damaged-"_s + moment;
    return giveName(path_, freePath(parentFolder(path_), name, {})); // numbered if another is of this second
}

} // namespace fennick
