#pragma once

#include "engine/recognition/read_error.h"

#include <QByteArray>
#include <QImage>

#include <expected>

namespace fennick::engine {

// The primary picture, turned as the file says, reduced to what text recognition can use.
std::expected<QImage, ReadError> decodedHeif(const QByteArray &bytes);

} // namespace fennick::engine
