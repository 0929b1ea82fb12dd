#include "platform/descriptor_linux.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace fennick {

namespace {

using Kind = FileProblem::Kind;

std::unexpected<FileProblem> problem(Kind kind) {
    return std::unexpected(FileProblem{kind, {}});
}

std::unexpected<FileProblem> systemProblem(int number) {
    return std::unexpected(FileProblem::ofErrorNumber(number));
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
        return std::unexpected(FileProblem::ofSystem(file->errorString()));
    }
    descriptor.release();
    return file;
}

} // namespace fennick
