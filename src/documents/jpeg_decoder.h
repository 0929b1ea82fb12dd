#pragma once

#include "documents/yuv_picture.h"

#include <QByteArray>

#include <optional>

namespace fennick {

// Decodes a whole JPEG file. The usual ones (grey, or brightness and chroma) come out in their own planes,
// without a way through RGB and with their colour profile; RGB and CMYK ones are converted to sRGB.
// Nothing for a file that is no JPEG, too large, or damaged or cut off anywhere in the picture itself.
std::optional<StoredPicture> decodeJpeg(const QByteArray &file);

} // namespace fennick
