#include "text/path_text.h"

#include <QDir>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// The position of the dot before the extension, or -1 without an extension.
qsizetype extensionDot(const QString &name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot <= 0 || dot == name.size() - 1 ? -1 : dot;
}

} // namespace

QString joinedPath(const QString &folder, const QString &name) {
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

QString parentFolder(const QString &path) {
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash == 0 ? u"/"_s : path.left(slash);
}

QString lastPathComponent(const QString &path) {
    return path.mid(path.lastIndexOf(u'/') + 1);
}

QString pathExtension(const QString &path) {
    const QString name = lastPathComponent(path);
    const qsizetype dot = extensionDot(name);
    return dot < 0 ? QString() : name.mid(dot + 1);
}

QString nameWithoutExtension(const QString &path) {
    const QString name = lastPathComponent(path);
    const qsizetype dot = extensionDot(name);
    return dot < 0 ? name : name.left(dot);
}

bool isLexicallyBelow(const QString &path, const QString &folder) {
    const QString start = joinedPath(folder, {});
    return path.startsWith(start) && path.size() > start.size() && QDir::cleanPath(path) == path;
}

} // namespace fennick
