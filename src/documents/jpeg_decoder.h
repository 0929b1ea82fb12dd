#pragma once

#include "documents/document_error.h"
#include "documents/picture_limits.h"
#include "documents/yuv_picture.h"

#include <QByteArray>

#include <expected>

namespace fennick {

// Decodes a whole JPEG file. The usual ones (grey, or brightness and chroma) come out in their own planes,
// without a detour through RGB and with their colour profile; RGB and CMYK ones are converted to sRGB. A file
// that is damaged or cut off anywhere in the picture itself is unreadable.
[[nodiscard]] std::expected<StoredPicture, DocumentError> decodedJpeg(const QByteArray &file,
                                                                      const PictureLimits &limits);

} // namespace fennick
