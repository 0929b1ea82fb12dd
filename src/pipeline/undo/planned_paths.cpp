#include "pipeline/undo/planned_paths.h"

#include "platform/regular_file.h"
#include "text/numbered_name.h"
#include "text/path_text.h"

namespace fennick {

QString PlannedPaths::take(const QString &folder, const QString &name) {
    QString path = joinedPath(folder, name);
    for (int number = 2; !isFree(path); ++number) {
        path = joinedPath(folder, numberedName(nameWithoutExtension(name), pathExtension(name), number));
    }
    planned_.insert(path);
    return path;
}

bool PlannedPaths::isFree(const QString &path) const {
    return !planned_.contains(path) && !isTaken(path);
}

} // namespace fennick
