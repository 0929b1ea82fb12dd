#include "platform/descriptor_linux.h"
#include "platform/regular_file.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace fennick {

namespace {

using Kind = FileProblem::Kind;

std::unexpected<FileProblem> problem(Kind kind) {
    return std::unexpected(FileProblem{kind, {}});
}

std::unexpected<FileProblem> systemProblem(int number) {
    return std::unexpected(FileProblem{Kind::system, QString::fromLocal8Bit(std::strerror(number))});
}

// Without waiting for a pipe's other end, and without making a terminal ours.
Descriptor opened(const FileToRead &wanted) {
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    if (!wanted.folder.isEmpty() && isLexicallyBelow(wanted.path, wanted.folder)) {
        return openBelow(wanted.folder, wanted.path, flags);
    }
    return Descriptor(::open(QFile::encodeName(wanted.path).constData(), flags));
}

} // namespace

FileState fileStateAt(const QString &path) {
    struct stat status{};
    // With a null character in it the system would look at another path.
    const bool isThere =
        !path.contains(QChar::Null) && ::lstat(QFile::encodeName(path).constData(), &status) == 0;
    return isThere ? fileState(status) : FileState{};
}

bool isTaken(const QString &path) {
    return fileStateAt(path).kind != FileKind::missing;
}

QString FileProblem::description() const {
    switch (kind) {
    case Kind::link:
        return QString::fromUtf8(QT_TRANSLATE_NOOP(
            "FileProblem", "The file is a link. Put the file itself into the folder to scan it."));
    case Kind::notRegular:
        return QString::fromUtf8(QT_TRANSLATE_NOOP("FileProblem", "This is not a regular file."));
    case Kind::replaced:
        return QString::fromUtf8(QT_TRANSLATE_NOOP(
            "FileProblem", "The file was changed before it could be read. Retry to scan it as it is now."));
    case Kind::tooLarge:
        return QString::fromUtf8(QT_TRANSLATE_NOOP("FileProblem", "The file is larger than 100 MB."));
    case Kind::system:
        break;
    }
    return systemText;
}

std::optional<FileProblem> problemOf(const FileState &state) {
    if (state.kind == FileKind::link) {
        return FileProblem{Kind::link, {}};
    }
    if (state.kind == FileKind::regular && state.size > largestReceiptFile) {
        return FileProblem{Kind::tooLarge, {}};
    }
    return std::nullopt;
}

OpenedFile openRegularFile(const FileToRead &wanted) {
    if (wanted.path.contains(QChar::Null)) {
        return systemProblem(EINVAL); // the system would read another name
    }
    Descriptor descriptor = opened(wanted);
    if (!descriptor.isOpen()) {
        return errno == ELOOP ? problem(Kind::link) : systemProblem(errno);
    }
    struct stat status{};
    if (::fstat(descriptor.number(), &status) != 0) {
        return systemProblem(errno);
    }
    const FileState state = fileState(status);
    if (state.kind == FileKind::folder) {
        return systemProblem(EISDIR);
    }
    if (state.kind != FileKind::regular) {
        return problem(Kind::notRegular);
    }
    if (wanted.identity && *wanted.identity != state.identity) {
        return problem(Kind::replaced);
    }
    if (state.size > wanted.mostBytes) {
        return problem(Kind::tooLarge);
    }
    auto file = std::make_unique<QFile>();
    if (!file->open(descriptor.number(), QIODevice::ReadOnly | QIODevice::Unbuffered,
                    QFileDevice::AutoCloseHandle)) {
        return std::unexpected(FileProblem{Kind::system, file->errorString()});
    }
    descriptor.release();
    return file;
}

QString reopeningPath(const QFile &file) {
    return QStringLiteral("/proc/self/fd/%1").arg(file.handle());
}

std::expected<QByteArray, FileProblem> readExactly(QFile &file, qint64 bytes) {
    QByteArray content(bytes, Qt::Uninitialized);
    for (qint64 filled = 0; filled < bytes;) {
        const qint64 count = file.read(content.data() + filled, bytes - filled);
        if (count < 0 && file.error() != QFileDevice::NoError) {
            return std::unexpected(FileProblem{Kind::system, file.errorString()});
        }
        if (count <= 0) {
            return problem(Kind::replaced);
        }
        filled += count;
    }
    return content;
}

std::expected<void, FileProblem> expectEnd(QFile &file) {
    char next = 0;
    if (file.read(&next, 1) > 0) {
        return problem(Kind::replaced);
    }
    return {};
}

std::expected<QByteArray, FileProblem> readWhole(QFile &file) {
    auto content = readExactly(file, file.size());
    if (!content) {
        return content;
    }
    if (const auto end = expectEnd(file); !end) {
        return std::unexpected(end.error());
    }
    return content;
}

} // namespace fennick
