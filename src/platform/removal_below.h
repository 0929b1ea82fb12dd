#pragma once

#include "platform/regular_file.h"

#include <QByteArrayList>
#include <QString>

#include <functional>

// Removals in a folder that others may write as well: nothing outside `root` is removed, because no link
// below it is followed. What cannot be removed remains. Any thread.
namespace fennick {

// Removes the regular file at `path` if it is the very file of that number and size.
void removeFileBelow(const QString &root, const QString &path, quint64 number, qint64 size);

// Removes from the folder at `path` the files that `removable` chooses from its content, and then the folder
// itself if it is empty.
void removeFolderBelow(const QString &root, const QString &path,
                       const std::function<QByteArrayList(const QByteArrayList &content)> &removable);

} // namespace fennick
