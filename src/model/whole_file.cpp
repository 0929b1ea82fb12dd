#include "model/whole_file.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace fennick {

namespace {

constexpr QFile::Permissions privateFile = QFile::ReadOwner | QFile::WriteOwner;

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

// By renaming, which needs no space and never replaces a file.
bool WholeFile::setAside() {
    const QString moment = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddTHH-mm-ss"));
    const QString name = path_ + QStringLiteral(".damaged-") + moment;
    if (QFile::rename(path_, name)) {
        return true;
    }
    // Twice within a second.
    return QFile::exists(name) && QFile::rename(path_, name + QStringLiteral(" (2)"));
}

} // namespace fennick
