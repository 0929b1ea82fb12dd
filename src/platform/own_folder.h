#pragma once

#include "platform/file_problem.h"

#include <QString>

#include <expected>

namespace fennick {

// Creates a folder that no other user can access at any moment. Fails if anything exists at the path.
[[nodiscard]] std::expected<void, FileProblem> createOwnFolder(const QString &path);

// Returns `path` if a folder of this user exists there or can be created. In a temporary directory shared by
// all users, another user's folder of that name (or a link) would let them exchange what is written below it:
// then a folder beside it is used whose name ends with the user's number.
[[nodiscard]] std::expected<QString, FileProblem> ownFolder(const QString &path);

} // namespace fennick
