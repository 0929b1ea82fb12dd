#pragma once

#include "engine/recognition/read_error.h"

#include <QByteArray>
#include <QImage>

#include <expected>

namespace fennick::engine {

// Whether `bytes` start like a still picture of the HEIF family ("ftyp" box with one of its brands).
bool looksLikeHeif(const QByteArray &bytes);

// The primary picture, turned as the file says, reduced to what text recognition can use.
std::expected<QImage, ReadError> decodedHeif(const QByteArray &bytes);

} // namespace fennick::engine
