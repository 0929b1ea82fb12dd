#pragma once

#include <QString>
#include <QStringList>

namespace fennick {

// The regular files below `folder` whose paths are not valid text (on Linux: not UTF-8), so that Qt cannot
// open them. Hidden files and folders are skipped, and links are not followed. The paths are for display:
// invalid parts are shown as replacement characters. Blocks as long as the file system does.
QStringList filesWithUnreadableNames(const QString &folder);

// Whether the path may be one of these.
bool mayBeUnreadable(const QString &path);

} // namespace fennick
