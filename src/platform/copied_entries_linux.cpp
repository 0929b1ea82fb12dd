#include "platform/copied_entries_linux.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace fennick {

namespace {

constexpr mode_t permissions = 07777;

int outcome(int result) {
    return result == 0 ? 0 : errno;
}

int openAt(const Place &place, int flags) {
    return ::openat(place.folder.number(), place.name.constData(), flags | O_NOFOLLOW | O_CLOEXEC);
}

Descriptor openNew(const Place &place) {
    return Descriptor(::openat(place.folder.number(), place.name.constData(),
                               O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
}

std::array<timespec, 2> timesOf(const struct stat &status) {
    return {status.st_atim, status.st_mtim};
}

int writeAll(int target, const char *bytes, ssize_t count) {
    while (count > 0) {
        const ssize_t written = ::write(target, bytes, static_cast<size_t>(count));
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        bytes += written;
        count -= written;
    }
    return 0;
}

int copyContent(int source, int target, off_t size) {
    constexpr size_t chunkSize = 1 << 18;
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    off_t copied = 0;
    while (true) {
        const ssize_t count = ::read(source, chunk.data(), chunkSize);
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        if (count == 0) {
            return copied == size ? 0 : EIO; // a file cut short is not the file
        }
        if (const int error = writeAll(target, chunk.constData(), count); error != 0) {
            return error;
        }
        copied += count;
    }
}

int copyLink(const Place &from, const Place &to, const struct stat &status) {
    QByteArray target(status.st_size + 1, '\0');
    const ssize_t length = ::readlinkat(from.folder.number(), from.name.constData(), target.data(),
                                        static_cast<size_t>(target.size()));
    if (length < 0 || length >= target.size()) {
        return length < 0 ? errno : EAGAIN;
    }
    target.truncate(length);
    const int error = outcome(::symlinkat(target.constData(), to.folder.number(), to.name.constData()));
    if (error == 0) {
        ::utimensat(to.folder.number(), to.name.constData(), timesOf(status).data(), AT_SYMLINK_NOFOLLOW);
    }
    return error;
}

} // namespace

int copyOpenFile(int source, const Place &to) {
    struct stat status{};
    if (::fstat(source, &status) != 0) {
        return errno;
    }
    const Descriptor target(openNew(to));
    if (!target.isOpen()) {
        return errno;
    }
    int error = copyContent(source, target.number(), status.st_size);
    if (error == 0) {
        // Not every file system has permissions and times.
        std::ignore = ::fchmod(target.number(), status.st_mode & permissions);
        std::ignore = ::futimens(target.number(), timesOf(status).data());
        error = outcome(::fsync(target.number()));
    }
    if (error != 0) {
        removeEntry(to);
    }
    return error;
}

int writeNewFile(const Place &to, const QByteArray &content) {
    const Descriptor target(openNew(to));
    if (!target.isOpen()) {
        return errno;
    }
    int error = writeAll(target.number(), content.constData(), content.size());
    if (error == 0) {
        error = outcome(::fsync(target.number()));
    }
    if (error != 0) {
        removeEntry(to);
    }
    return error;
}

int removeEntry(const Place &place) {
    if (fileStateIn(place.folder, place.name).kind != FileKind::folder) {
        return outcome(::unlinkat(place.folder.number(), place.name.constData(), 0));
    }
    const Descriptor folder(openAt(place, O_RDONLY | O_DIRECTORY));
    for (const QByteArray &name : namesIn(folder)) {
        removeEntry({folder, name});
    }
    return outcome(::unlinkat(place.folder.number(), place.name.constData(), AT_REMOVEDIR));
}

int synchroniseFolder(const Descriptor &folder) {
    const Descriptor readable(::openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!readable.isOpen()) {
        return errno;
    }
    const int error = outcome(::fsync(readable.number()));
    return error == EINVAL || error == ENOTSUP ? 0 : error;
}

CopiedEntries::Stamp CopiedEntries::stampOf(const struct stat &status) {
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

int CopiedEntries::copy(const Place &from, const Place &to) {
    struct stat status{};
    if (::fstatat(from.folder.number(), from.name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return errno;
    }
    int error = ENOTSUP;
    if (S_ISREG(status.st_mode)) {
        const Descriptor source(openAt(from, O_RDONLY | O_NONBLOCK));
        struct stat opened{};
        if (!source.isOpen() || ::fstat(source.number(), &opened) != 0) {
            return errno;
        }
        error = stampOf(opened) == stampOf(status) ? copyOpenFile(source.number(), to) : EAGAIN;
    } else if (S_ISLNK(status.st_mode)) {
        error = copyLink(from, to, status);
    } else if (S_ISDIR(status.st_mode)) {
        return copyFolder(from, to, status);
    }
    if (error == 0) {
        copied_.insert(stampOf(status));
    }
    return error;
}

int CopiedEntries::copyFolder(const Place &from, const Place &to, const struct stat &status) {
    const Descriptor source(openAt(from, O_RDONLY | O_DIRECTORY));
    if (!source.isOpen() || ::mkdirat(to.folder.number(), to.name.constData(), S_IRWXU) != 0) {
        return errno;
    }
    const Descriptor target(openAt(to, O_RDONLY | O_DIRECTORY));
    if (!target.isOpen()) {
        return errno;
    }
    for (const QByteArray &name : namesIn(source)) {
        if (const int error = copy({source, name}, {target, name}); error != 0) {
            return error;
        }
    }
    std::ignore = ::fchmod(target.number(), status.st_mode & permissions);
    std::ignore = ::futimens(target.number(), timesOf(status).data());
    return synchroniseFolder(target);
}

int CopiedEntries::removeSource(const Place &from) {
    struct stat status{};
    if (::fstatat(from.folder.number(), from.name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return errno;
    }
    if (S_ISDIR(status.st_mode)) {
        return removeFolder(from);
    }
    if (!copied_.contains(stampOf(status))) {
        return EAGAIN;
    }
    const int error = outcome(::unlinkat(from.folder.number(), from.name.constData(), 0));
    hasRemovedAny_ = hasRemovedAny_ || error == 0;
    return error;
}

int CopiedEntries::removeFolder(const Place &from) {
    int firstError = 0;
    {
        const Descriptor folder(openAt(from, O_RDONLY | O_DIRECTORY));
        for (const QByteArray &name : namesIn(folder)) {
            const int error = removeSource({folder, name});
            firstError = firstError == 0 ? error : firstError;
        }
    }
    const int error = outcome(::unlinkat(from.folder.number(), from.name.constData(), AT_REMOVEDIR));
    hasRemovedAny_ = hasRemovedAny_ || error == 0;
    return firstError == 0 ? error : firstError;
}

} // namespace fennick
