#include "model/data_folder.h"

#include "text/path_text.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace fennick {

using namespace Qt::StringLiterals;

QString dataFolder() {
    const QString parent = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString folder = joinedPath(parent, u"Fennick"_s);
    QDir().mkpath(folder);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return folder;
}

} // namespace fennick
