#pragma once

#include "platform/file_problem.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <expected>

class QFile;

// Operations on files that never lose one; only replaceContent replaces one. Callable from any thread.
namespace fennick::FileOperations {

// Copies a regular file to a path at which nothing exists; the copy is on the disk when this returns. After a
// failure no part of it remains.
[[nodiscard]] std::expected<void, FileProblem> copyDurably(const QString &source, const QString &target);

// Replaces the file, or creates one that only the user can read and write. The old content remains until all
// of the new content is on the disk, and after a failure. This needs write permission for the folder, not for
// the file. If there is a link at the path, its target is replaced.
[[nodiscard]] std::expected<void, FileProblem> replaceContent(const QString &path, const QByteArray &content);

// Moves a file, a link or a folder to a path at which nothing exists, also to another file system: the source
// then remains until its copy, with its times, is complete and on the disk. After a failure the source is
// where it was and nothing was added at the target. If the source lies below `folder`, no link between the
// two is followed.
[[nodiscard]] std::expected<void, FileProblem>
moveWithoutReplacing(const QString &source, const QString &target, const QString &folder = {});

// Cleans up after moves of `sources` to another file system that a killed program left unfinished in
// `folder`: removes the copies whose sources still exist, and gives the others their names, numbered if
// taken. Failures are not reported.
void finishInterruptedMoves(const QString &folder, const QStringList &sources);

// Creates the folder and the missing ones above it; they are on the disk when this returns.
[[nodiscard]] std::expected<void, FileProblem> makeFolder(const QString &path);

// Flushes what was written to the file to the disk. Returns whether that succeeded.
[[nodiscard]] bool synchronise(QFile &file);

} // namespace fennick::FileOperations
