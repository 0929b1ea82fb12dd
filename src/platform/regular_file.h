#pragma once

#include "platform/file_problem.h"

#include <QFile>
#include <QString>

#include <expected>
#include <memory>
#include <optional>

namespace fennick {

// What a receipt file may weigh. A larger one is hardly a receipt, and would be held in memory several times.
inline constexpr qint64 largestReceiptFile = 100'000'000; // bytes

// Which file it is, by whatever name: as long as it exists, no other has the same.
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

// What stands at the path itself: a link is not followed.
FileState fileStateAt(const QString &path);

// Whether nothing else can have this path. A link whose target is gone holds its name as well.
bool isTaken(const QString &path);

// Why a file in this state is no receipt to be read, as far as that shows without opening it: it is a link or
// too large.
[[nodiscard]] std::optional<FileProblem> problemOf(const FileState &state);

// A file that is to be read, and what it must be for that.
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

// Opens a regular file for reading, without buffer. Neither follows a link at the path's end nor waits for
// the other end of a pipe; what has been checked is what was opened. Any thread.
[[nodiscard]] OpenedFile openRegularFile(const FileToRead &wanted);

// The next `bytes` bytes, all of them: a file that has fewer has changed since its size was asked for, or its
// disk is failing.
[[nodiscard]] std::expected<QByteArray, FileProblem> readExactly(QFile &file, qint64 bytes);

// Fails if the file goes on: it has grown since its size was asked for.
[[nodiscard]] std::expected<void, FileProblem> expectEnd(QFile &file);

// The whole content by these rules.
[[nodiscard]] std::expected<QByteArray, FileProblem> readWhole(QFile &file);

} // namespace fennick
