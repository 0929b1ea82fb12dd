#pragma once

#include "files/yuv_picture.h"

#include <QString>

#include <optional>

namespace fennick {

// Reads and decodes a picture file. What it is shows in its first bytes; its name does not count. Nothing for
// anything but a readable, whole JPEG, PNG, WebP or HEIC file of acceptable size.
std::optional<StoredPicture> readPictureFile(const QString &path);

} // namespace fennick
