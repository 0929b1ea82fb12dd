#pragma once

#include "documents/document_error.h"
#include "documents/picture_limits.h"
#include "documents/yuv_picture.h"

#include <QByteArray>

#include <expected>

namespace fennick {

// Decodes a whole picture file (JPEG, PNG, WebP, HEIC, GIF or BMP). Its kind shows in its first bytes; names
// often lie. A file that is cut off or damaged in the picture itself is unreadable. `usefulSize` gives the
// size that suffices for a picture of the given one: readers that need less memory for it reduce the picture
// while they read it, others return it as it is. Callable from any thread. Throws std::bad_alloc.
[[nodiscard]] std::expected<StoredPicture, DocumentError>
decodedPicture(const QByteArray &content, const PictureLimits &limits, UsefulSize usefulSize = nullptr);

} // namespace fennick
