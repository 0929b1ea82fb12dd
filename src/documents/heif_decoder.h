#pragma once

#include "documents/document_error.h"
#include "documents/picture_limits.h"
#include "documents/yuv_picture.h"

#include <QByteArray>

#include <expected>

namespace fennick {

// Decodes the primary picture of a HEIF file, turned as the file says, converted to sRGB and laid on white.
[[nodiscard]] std::expected<StoredPicture, DocumentError> decodedHeif(const QByteArray &file,
                                                                      const PictureLimits &limits);

} // namespace fennick
