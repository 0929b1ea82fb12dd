#pragma once

#include "documents/yuv_picture.h"

#include <QByteArray>
#include <QString>

namespace fennick {

// Writes the picture as a new JPEG file of quality 90 at `path`, with `iccProfile` in it unless that is
// empty. `picture` is grey or has one chroma sample for 2 by 2 pixels. False when it cannot be encoded (a
// side over 65,500 pixels) or not be written completely; then no file is left.
bool writeJpeg(YuvPicture picture, const QByteArray &iccProfile, const QString &path);

} // namespace fennick
