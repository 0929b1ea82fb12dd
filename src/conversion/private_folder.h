#pragma once

#include "platform/file_problem.h"

#include <QString>

#include <expected>

namespace fennick {

// Creates a new folder for one conversion's pictures, <temporary directory>/FennickJPEG/<random UUID>, which
// no other user can access. Returns its path.
[[nodiscard]] std::expected<QString, FileProblem> createPrivateFolder();

} // namespace fennick
