#pragma once

#include <QString>

namespace fennick {

// Whether a file of this name is taken in, by its extension.
bool isSupported(const QString &path);

} // namespace fennick
