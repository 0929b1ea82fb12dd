#pragma once

#include <QString>

// Operations on paths as texts. None of them accesses the file system.
namespace fennick {

// `name` in `folder`, whatever `name` begins with. Use this for all paths: Qt's functions take a name that
// begins with a colon for a resource, and one that begins with a slash for an absolute path.
QString joinedPath(const QString &folder, const QString &name);

// The folder that contains the path, without a trailing slash; "/" for an entry of the root.
QString parentFolder(const QString &path);

// The text after the last slash.
QString lastPathComponent(const QString &path);

// The text after the last dot of the last path component, in its original case. Empty without a dot, after a
// trailing dot, and if the only dot is the first character: ".pdf" is a hidden file, not a PDF.
QString pathExtension(const QString &path);

// The last path component without its extension and the dot before it.
QString nameWithoutExtension(const QString &path);

// Whether `path` begins with `folder` and names something below it, without empty, "." and ".." components.
[[nodiscard]] bool isLexicallyBelow(const QString &path, const QString &folder);

} // namespace fennick
