#pragma once

#include "documents/document_error.h"
#include "documents/picture_limits.h"
#include "documents/yuv_picture.h"

#include <QByteArray>

#include <expected>
#include <optional>

namespace fennick {

// Decodes a whole JPEG file. The usual ones (grey, or brightness and chroma) come out in their own planes,
// without a detour through RGB and with their colour profile; RGB and CMYK ones are converted to sRGB. A file
// that is damaged or cut off anywhere in the picture itself is unreadable.
[[nodiscard]] std::expected<StoredPicture, DocumentError> decodedJpeg(const QByteArray &file,
                                                                      const PictureLimits &limits);

// What a JPEG file states of itself, for a program that passes it on as it is.
struct JpegFacts {
    int width = 0;
    int height = 0;
    int channels = 0;
    int orientation = 1; // EXIF
    QByteArray iccProfile;
    bool isRgb = false;        // three channels that are red, green and blue
    bool hasAdobeMark = false; // four channels are inverted inks then
    bool isArithmetic = false; // coded in a way that few programs read
};

// Reads the header alone. Nothing if it is no header of a JPEG file.
[[nodiscard]] std::optional<JpegFacts> jpegFacts(const QByteArray &file);

} // namespace fennick
