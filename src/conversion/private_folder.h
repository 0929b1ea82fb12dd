#pragma once

#include <QString>

#include <expected>

namespace fennick {

// Creates a new folder for one conversion's pictures, <temporary directory>/FennickJPEG/<random UUID>, which
// no other user can access. Returns its path, or the system's description of what prevented it.
[[nodiscard]] std::expected<QString, QString> createPrivateFolder();

} // namespace fennick
