#pragma once

#include <QString>

#include <expected>

namespace fennick {

// Creates a new folder for one conversion's pictures, <temporary directory>/FennickJPEG/<random UUID>, which
// no other user can look into. Gives its path, or the system's description of what prevented it.
std::expected<QString, QString> createPrivateFolder();

} // namespace fennick
