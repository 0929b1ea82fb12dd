#include "model/whole_file.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>
#include <system_error>

namespace fennick {

namespace {

constexpr QFile::Permissions privateFile = QFile::ReadOwner | QFile::WriteOwner;

// Neither needs space nor replaces a file. A second name keeps the first until the new content takes its
// place; file systems that know no second names have it renamed.
bool giveName(const QString &path, const QString &name) {
    std::error_code error;
    std::filesystem::create_hard_link(path.toStdU16String(), name.toStdU16String(), error);
    return !error || QFile::rename(path, name);
}

} // namespace

WholeFile::WholeFile(const QString &path)
    : path_(path) {}

QByteArray WholeFile::content() const {
    QFile file(path_);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WholeFile::setDamaged() {
    isDamaged_ = QFileInfo::exists(path_);
}

void WholeFile::rewrite(const QByteArray &content) {
    if (isDamaged_ && !setAside()) {
        return;
    }
    isDamaged_ = false;
    QSaveFile file(path_);
    if (!file.open(QIODevice::WriteOnly)) {
        return;
    }
    file.setPermissions(privateFile);
    if (file.write(content) != content.size()) {
        file.cancelWriting();
    }
    file.commit();
}

void WholeFile::remove() {
    QFile::remove(path_);
}

bool WholeFile::setAside() const {
    const QString moment = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddTHH-mm-ss"));
    const QString name = path_ + QStringLiteral(".damaged-") + moment;
    const QString secondName = name + QStringLiteral(" (2)"); // for another one within a second
    return giveName(path_, name) || (QFileInfo::exists(name) && giveName(path_, secondName));
}

} // namespace fennick
