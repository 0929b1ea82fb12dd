#pragma once

#include "documents/yuv_picture.h"

#include <QByteArray>

#include <optional>

namespace fennick {

// Decode whole PNG and WebP files, converted to sRGB and laid on white; of an animation the first picture.
// Nothing for a file that is too large or cannot be decoded to its end.
std::optional<StoredPicture> decodePng(const QByteArray &file);
std::optional<StoredPicture> decodeWebp(const QByteArray &file);

// The same for a kind without orientation, by the name that Qt gives it.
std::optional<StoredPicture> decodePlain(const QByteArray &file, const char *format);

// The last steps of every decoder to packed pixels. `image` has the format ARGB32 and is in sRGB.
std::optional<YuvPicture> yuvPictureOnWhite(QImage image);

} // namespace fennick
