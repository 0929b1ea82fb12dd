#pragma once

#include "documents/yuv_picture.h"

#include <QByteArray>

#include <optional>

namespace fennick {

// Decodes the primary picture of a HEIF file, turned as the file says, converted to sRGB and laid on white.
// Nothing for a file that is too large or cannot be decoded.
std::optional<StoredPicture> decodeHeif(const QByteArray &file);

} // namespace fennick
