#pragma once

#include "documents/yuv_picture.h"

#include <QByteArray>

#include <optional>

namespace fennick {

// The picture as a JPEG file, with `iccProfile` in it unless that is empty. `picture` is grey or has one
// chroma sample for 2 by 2 pixels; `quality` is libjpeg's, up to 100. Empty if the picture cannot be encoded
// (a side over 65,500 pixels, the limit of libjpeg).
[[nodiscard]] std::optional<QByteArray> encodedJpeg(YuvPicture picture, const QByteArray &iccProfile,
                                                    int quality);

} // namespace fennick
