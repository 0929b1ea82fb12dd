#include "platform/descriptor_linux.h"

#include "text/path_text.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace fennick {

namespace {

FileKind kindOf(mode_t mode) {
    if (S_ISREG(mode)) {
        return FileKind::regular;
    }
    if (S_ISLNK(mode)) {
        return FileKind::link;
    }
    return S_ISDIR(mode) ? FileKind::folder : FileKind::other;
}

} // namespace

void Descriptor::reset(int number) {
    if (number_ >= 0) {
        ::close(number_);
    }
    number_ = number;
}

Descriptor openBelow(const QString &folder, const QString &path, int flags) {
    const Descriptor root(::open(QFile::encodeName(folder).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!root.isOpen()) {
        return Descriptor();
    }
    const QByteArray relative = QFile::encodeName(path.mid(joinedPath(folder, {}).size()));
    open_how how{};
    how.flags = static_cast<decltype(how.flags)>(flags | O_NOFOLLOW | O_CLOEXEC);
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS;
    const long opened = ::syscall(SYS_openat2, root.number(), relative.constData(), &how, sizeof how);
    if (opened >= 0 || (errno != ENOSYS && errno != EPERM)) {
        return Descriptor(static_cast<int>(opened));
    }
    return Descriptor(::openat(root.number(), relative.constData(), flags | O_NOFOLLOW | O_CLOEXEC));
}

Descriptor openParent(const QString &folder, const QString &path) {
    constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
    const QString parent = parentFolder(path);
    if (!folder.isEmpty() && isLexicallyBelow(parent, folder)) {
        return openBelow(folder, parent, flags);
    }
    return Descriptor(::open(QFile::encodeName(parent).constData(), flags));
}

QByteArrayList namesIn(const Descriptor &folder) {
    QByteArrayList names;
    Descriptor readable(::openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DIR *const entries = readable.isOpen() ? ::fdopendir(readable.number()) : nullptr;
    if (entries == nullptr) {
        return names;
    }
    readable.release(); // closed with the entries
    while (const dirent *const entry = ::readdir(entries)) {
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..") {
            names.append(name);
        }
    }
    ::closedir(entries);
    return names;
}

FileState fileState(const struct stat &status) {
    return {kindOf(status.st_mode), status.st_size, {status.st_dev, status.st_ino}};
}

FileState fileStateIn(const Descriptor &folder, const QByteArray &name) {
    struct stat status{};
    if (::fstatat(folder.number(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return {};
    }
    return fileState(status);
}

} // namespace fennick
