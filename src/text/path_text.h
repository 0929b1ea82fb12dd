#pragma once

#include <QString>

// The parts of a path text. They look at the text only, never at the file system.
namespace fennick {

// `name` in `folder`, whatever it begins with. All paths are put together by this: Qt's own joining takes a
// name that begins with a colon for one of its resources, and a slash at its beginning for another folder.
QString joinedPath(const QString &folder, const QString &name);

// The folder in which the path lies, without a slash at its end; "/" for what lies in the root.
QString parentFolder(const QString &path);

// The text after the last slash.
QString lastPathComponent(const QString &path);

// The text after the last dot of the last path component, as it is written; empty without a dot, after a
// trailing dot, and for a name whose only dot is its first character (".pdf" is a hidden file, no PDF).
QString pathExtension(const QString &path);

// The last path component without its extension and the dot before it.
QString nameWithoutExtension(const QString &path);

} // namespace fennick
