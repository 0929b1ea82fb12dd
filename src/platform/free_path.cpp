#include "platform/free_path.h"

#include "platform/regular_file.h"
#include "text/numbered_name.h"
#include "text/path_text.h"

namespace fennick {

QString freePath(const QString &folder, const QString &stem, const QString &extension) {
    QString path = joinedPath(folder, extension.isEmpty() ? stem : stem + u'.' + extension);
    for (int number = 2; isTaken(path); ++number) {
        path = joinedPath(folder, numberedName(stem, extension, number));
    }
    return path;
}

QString freePath(const QString &folder, const QString &name) {
    return freePath(folder, nameWithoutExtension(name), pathExtension(name));
}

} // namespace fennick
