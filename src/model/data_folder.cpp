#include "model/data_folder.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace fennick {

QString dataFolder() {
    const QDir parent(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const QString folder = parent.filePath(QStringLiteral("Fennick"));
    parent.mkpath(folder);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return folder;
}

} // namespace fennick
