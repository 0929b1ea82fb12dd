#pragma once

#include "engine/recognition/read_error.h"

#include <QByteArray>
#include <QImage>

#include <expected>

namespace fennick::engine {

// The brightness of the picture in `bytes` (JPEG, PNG, WebP or HEIC; the first bytes show which), upright, on
// white, reduced to what text recognition can use. Its format is Grayscale8. Callable from any thread.
[[nodiscard]] std::expected<QImage, ReadError> decodedImage(const QByteArray &bytes);

} // namespace fennick::engine
