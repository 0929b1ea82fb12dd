#include "platform/descriptor_linux.h"
#include "platform/removal_below.h"
#include "text/path_text.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace fennick {

namespace {

QByteArray entryName(const QString &path) {
    return QFile::encodeName(lastPathComponent(path));
}

} // namespace

void removeFileBelow(const QString &root, const QString &path, quint64 number, qint64 size) {
    const Descriptor folder = openParent(root, path);
    if (!folder.isOpen()) {
        return;
    }
    const FileState found = fileStateIn(folder, entryName(path));
    if (found.kind == FileKind::regular && found.size == size && found.identity.number == number) {
        ::unlinkat(folder.number(), entryName(path).constData(), 0);
    }
}

void removeFolderBelow(const QString &root, const QString &path,
                       const std::function<QByteArrayList(const QByteArrayList &content)> &removable) {
    const Descriptor folder = openBelow(root, path, O_RDONLY | O_DIRECTORY);
    const Descriptor parent = openParent(root, path);
    if (!folder.isOpen() || !parent.isOpen()) {
        return;
    }
    for (const QByteArray &name : removable(namesIn(folder))) {
        ::unlinkat(folder.number(), name.constData(), 0);
    }
    ::unlinkat(parent.number(), entryName(path).constData(), AT_REMOVEDIR);
}

} // namespace fennick
