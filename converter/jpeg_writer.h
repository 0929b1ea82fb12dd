#pragma once

#include "documents/yuv_picture.h"

#include <QByteArray>
#include <QString>

namespace fennick {

// Writes the picture as a new JPEG file of quality 90 at `path`, with `iccProfile` in it unless that is
// empty. `picture` is grey or has one chroma sample for 2 by 2 pixels. Returns false if it cannot be encoded
// (a side over 65,500 pixels, the limit of libjpeg) or not be written completely; then no file remains.
[[nodiscard]] bool writeJpeg(YuvPicture picture, const QByteArray &iccProfile, const QString &path);

} // namespace fennick
