#pragma once

#include <QString>

#include <expected>

// Operations on files that must neither lose nor replace one. Callable from any thread; the error is the
// system's description.
namespace fennick::FileOperations {

// Copies to a path at which nothing exists; the copy is on the disk itself when this returns. After a failure
// no part of it is left.
std::expected<void, QString> copyDurably(const QString &source, const QString &target);

// Moves to a path at which nothing exists, also to another file system: the source then stays until its copy
// is complete and on the disk. After a failure the source is where it was and nothing is at the target.
std::expected<void, QString> moveWithoutReplacing(const QString &source, const QString &target);

// Removes what a move to another file system has left in `folder` when the program was killed in the middle.
void removePartsOfMoves(const QString &folder);

} // namespace fennick::FileOperations
