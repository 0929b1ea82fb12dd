#include "platform/regular_file.h"

namespace fennick {

namespace {

using Kind = FileProblem::Kind;

} // namespace

bool isTaken(const QString &path) {
    return fileStateAt(path).kind != FileKind::missing;
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

std::expected<QByteArray, FileProblem> readExactly(QFile &file, qint64 bytes) {
    QByteArray content(bytes, Qt::Uninitialized);
    for (qint64 filled = 0; filled < bytes;) {
        const qint64 count = file.read(content.data() + filled, bytes - filled);
        if (count < 0 && file.error() != QFileDevice::NoError) {
            return std::unexpected(FileProblem::ofSystem(file.errorString()));
        }
        if (count <= 0) {
            return std::unexpected(FileProblem{Kind::replaced, {}});
        }
        filled += count;
    }
    return content;
}

std::expected<void, FileProblem> expectEnd(QFile &file) {
    char next = 0;
    if (file.read(&next, 1) > 0) {
        return std::unexpected(FileProblem{Kind::replaced, {}});
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
