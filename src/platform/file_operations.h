#pragma once

#include "platform/file_problem.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <expected>

class QFile;

// Operations on files that must neither lose nor replace one. Callable from any thread.
namespace fennick::FileOperations {

// Copies a regular file to a path at which nothing exists; the copy is on the disk itself when this returns.
// After a failure no part of it is left.
[[nodiscard]] std::expected<void, FileProblem> copyDurably(const QString &source, const QString &target);

// Replaces the file, or makes one that only the user can read and write. What was there stays until all of
// the new content is on the disk, and after a failure. It takes the permission to write into the folder, not
// into the file. If a link stands at the path, its target is replaced.
[[nodiscard]] std::expected<void, FileProblem> replaceContent(const QString &path, const QByteArray &content);

// Moves what stands at a path, be it a file, a link or a folder, to a path at which nothing exists, also to
// another file system: the source then stays until its copy, with its times, is complete and on the disk.
// After a failure the source is where it was and nothing is at the target. If the source lies below `folder`,
// no link between the two is followed.
[[nodiscard]] std::expected<void, FileProblem>
moveWithoutReplacing(const QString &source, const QString &target, const QString &folder = {});

// Settles what moves of `sources` to another file system have left in `folder` when the program was killed in
// the middle: removes the copies whose sources are there, and gives their names to those whose are not.
void settlePartsOfMoves(const QString &folder, const QStringList &sources);

// Makes the folder and those above it that are missing; they are on the disk itself when this returns.
[[nodiscard]] std::expected<void, FileProblem> makeFolder(const QString &path);

// Puts what was written to the file on the disk itself. Returns whether all of it is there.
[[nodiscard]] bool synchronise(QFile &file);

} // namespace fennick::FileOperations
