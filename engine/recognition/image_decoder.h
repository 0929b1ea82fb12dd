#pragma once

#include "engine/recognition/read_error.h"

#include <QByteArray>
#include <QImage>

#include <expected>

namespace fennick::engine {

// The picture in `bytes` (JPEG, PNG, WebP or HEIC, told by its first bytes: file names often lie), upright,
// on white, reduced to what text recognition can use. Callable from any thread.
std::expected<QImage, ReadError> decodedImage(const QByteArray &bytes);

} // namespace fennick::engine
