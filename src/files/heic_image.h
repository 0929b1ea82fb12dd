#pragma once

#include "files/yuv_picture.h"

#include <QByteArray>

#include <optional>

namespace fennick {

// Whether `file` begins like a HEIF file (HEIC and its relatives) that this system's decoder knows.
bool looksLikeHeif(const QByteArray &file);

// Decodes the primary picture of a HEIF file, turned as the file says, converted to sRGB and laid on white.
// Nothing for a file that is too large or cannot be decoded.
std::optional<StoredPicture> decodeHeif(const QByteArray &file);

} // namespace fennick
