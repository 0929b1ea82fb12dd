#pragma once

#include "platform/file_problem.h"

#include <QFile>
#include <QString>

#include <expected>
#include <memory>
#include <optional>

namespace fennick {

// The largest receipt file. A larger one is hardly a receipt, and would be held in memory several times.
inline constexpr qint64 largestReceiptFile = 100'000'000; // bytes

// Identifies a file under any name: while it exists, no other file has the same identity.
struct FileIdentity {
    quint64 device = 0;
    quint64 number = 0;
    bool operator==(const FileIdentity &other) const = default;
};

enum class FileKind { missing, regular, link, folder, other };

struct FileState {
    FileKind kind = FileKind::missing;
    qint64 size = 0; // bytes
    FileIdentity identity;
    bool operator==(const FileState &other) const = default;
};

// The state of the path itself; a link is not followed.
FileState fileStateAt(const QString &path);

// Whether something exists at this path. A link whose target is missing counts as well.
bool isTaken(const QString &path);

// Why a file in this state cannot be read as a receipt, as far as that is known without opening it: it is a
// link or too large.
[[nodiscard]] std::optional<FileProblem> problemOf(const FileState &state);

// A file to read, and the conditions that it must meet.
struct FileToRead {
    QString path;
    QString folder;                       // if the path lies below it, no link between the two is followed
    std::optional<FileIdentity> identity; // of the file that was seen earlier
    qint64 mostBytes = largestReceiptFile;

    // Any regular file of acceptable size.
    FileToRead(const QString &filePath)
        : path(filePath) {}
};

using OpenedFile = std::expected<std::unique_ptr<QFile>, FileProblem>;

// Opens a regular file for unbuffered reading. Neither follows a link at the end of the path nor waits for
// the other end of a pipe. The checks apply to the opened file. Any thread.
[[nodiscard]] OpenedFile openRegularFile(const FileToRead &wanted);

// The next `bytes` bytes. Fails if there are fewer: the file changed since its size was read, or its disk is
// failing.
[[nodiscard]] std::expected<QByteArray, FileProblem> readExactly(QFile &file, qint64 bytes);

// Fails if the file has more bytes: it has grown since its size was read.
[[nodiscard]] std::expected<void, FileProblem> expectEnd(QFile &file);

// The whole content, by the rules of readExactly and expectEnd.
[[nodiscard]] std::expected<QByteArray, FileProblem> readWhole(QFile &file);

} // namespace fennick
