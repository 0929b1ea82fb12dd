#include "pipeline/archive_places.h"

#include "text/path_text.h"

namespace fennick {

bool ArchivePlaces::contains(const QString &path) const {
    if (path.contains(u"/Receipt Archive/")) {
        return true;
    }
    return !configured.isEmpty() && path.startsWith(joinedPath(configured, QString()));
}

} // namespace fennick
