#pragma once

#include "documents/document_error.h"
#include "documents/picture_limits.h"
#include "documents/yuv_picture.h"

#include <QByteArray>

#include <expected>
#include <optional>

namespace fennick {

// Decode whole PNG and WebP files by Qt's readers, converted to sRGB and laid on white; of an animation the
// first picture. They reduce the picture while they read it to what `usefulSize` gives, if that is not null.
[[nodiscard]] std::expected<StoredPicture, DocumentError>
decodedPng(const QByteArray &file, const PictureLimits &limits, UsefulSize usefulSize);
[[nodiscard]] std::expected<StoredPicture, DocumentError>
decodedWebp(const QByteArray &file, const PictureLimits &limits, UsefulSize usefulSize);

// The same for a kind without orientation, by the name that Qt gives it.
[[nodiscard]] std::expected<StoredPicture, DocumentError>
decodedPlain(const QByteArray &file, const char *format, const PictureLimits &limits);

// All the colours of a picture, which the planes of a YuvPicture do not keep.
struct LosslessPicture {
    QImage image; // in sRGB on white; RGB32
    int orientation = 1;
};

// Decodes a whole PNG, WebP, GIF or BMP file; its first bytes show which.
[[nodiscard]] std::expected<LosslessPicture, DocumentError> decodedLossless(const QByteArray &file,
                                                                            const PictureLimits &limits);

// The last steps of every decoder to packed pixels. `image` has the format ARGB32 and is in sRGB. Empty if
// the conversion fails.
[[nodiscard]] std::optional<YuvPicture> yuvPictureOnWhite(QImage image);

} // namespace fennick
