#pragma once

#include "documents/yuv_picture.h"

#include <optional>

class QFile;

namespace fennick {

// Reads and decodes an open picture file. What it is shows in its first bytes; its name does not count.
// Nothing for anything but a readable, whole JPEG, PNG, WebP or HEIC file of acceptable size.
std::optional<StoredPicture> readPictureFile(QFile &file);

} // namespace fennick
