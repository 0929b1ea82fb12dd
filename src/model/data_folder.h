#pragma once

#include <QString>

namespace fennick {

// The folder "Fennick" in the user's data folder, private to the user. Creates it if it is missing; if that
// fails, writing a file in it fails later.
QString dataFolder();

} // namespace fennick
