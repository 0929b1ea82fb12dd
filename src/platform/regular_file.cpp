#include "platform/regular_file.h"

#include <QCoreApplication>

namespace fennick {

namespace {

using Kind = FileProblem::Kind;

} // namespace

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

std::expected<QByteArray, FileProblem> readExactly(QFile &file, qint64 bytes) {
    QByteArray content(bytes, Qt::Uninitialized);
    for (qint64 filled = 0; filled < bytes;) {
        const qint64 count = file.read(content.data() + filled, bytes - filled);
        if (count < 0 && file.error() != QFileDevice::NoError) {
            return std::unexpected(FileProblem{Kind::system, file.errorString()});
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
