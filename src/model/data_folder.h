#pragma once

#include <QString>

namespace fennick {

// The folder "Fennick" in the user's data folder, made when it is missing and private to the user. That it
// cannot be made shows when a file in it is written.
QString dataFolder();

} // namespace fennick
