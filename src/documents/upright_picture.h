#pragma once

#include "documents/yuv_picture.h"

namespace fennick {

// The picture turned and mirrored to stand upright. `orientation` is the value of the EXIF tag of that name:
// 1 upright, 2 mirrored, 3 upside down, 4 mirrored upside down, 5 mirrored and lying on its left side, 6
// lying on its left side, 7 mirrored and lying on its right side, 8 lying on its right side.
[[nodiscard]] YuvPicture uprightPicture(YuvPicture picture, int orientation);

} // namespace fennick
