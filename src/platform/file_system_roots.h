#pragma once

#include <QString>

namespace fennick {

// Whether a file system is mounted on the folder or below it, as on "/" or the folder of a memory stick.
// Blocks as long as the file system does.
bool holdsFileSystemRoot(const QString &folder);

} // namespace fennick
