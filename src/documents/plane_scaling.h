#pragma once

#include "documents/yuv_picture.h"

#include <QSize>

#include <optional>

namespace fennick {

// `size` made to fit a square of `longestSide` pixels with its shape kept; unchanged when it fits already.
QSize fittedSize(QSize size, int longestSide);

// The picture scaled (Lanczos) to `size` pixels, with its chroma brought to one sample for 2 by 2 pixels.
// Empty if the scaler refuses the sizes.
[[nodiscard]] std::optional<YuvPicture> scaledPicture(YuvPicture picture, QSize size);

} // namespace fennick
