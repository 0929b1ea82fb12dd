#pragma once

#include <QString>
#include <QStringList>

namespace fennick {

// The regular files below `folder` whose paths are no text (on Linux: no UTF-8) and cannot be opened by them,
// without hidden ones and what lies in hidden folders; links are not followed. The paths are for display:
// each piece that is no text has become a replacement character. Waits as long as the file system does.
QStringList filesWithUnreadableNames(const QString &folder);

// Whether the path may be one of those.
bool mayBeUnreadable(const QString &path);

} // namespace fennick
