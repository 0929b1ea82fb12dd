#pragma once

#include "engine/recognition/grey_picture.h"

#include <QPointF>

#include <array>
#include <optional>

namespace fennick::engine {

// The corners of a sheet of paper in a picture, in its pixels: top left, top right, bottom right, bottom
// left.
using PaperCorners = std::array<QPointF, 4>;

// Where a light sheet lies on something darker. Only a sheet that is seen whole, with four straight sides
// and no more than 40 degrees from upright, is found; a page that fills its picture, a hand over a corner or
// a second sheet gives none, as a wrong guess costs print.
std::optional<PaperCorners> paperCorners(const GreyPicture &picture);

// The sheet of `picture`, as seen from straight above when it was taken from the side; `picture` itself when
// no sheet is found in it, or one that is a rectangle already.
[[nodiscard]] DerivedPicture seenFromAbove(GreyPicture picture);

} // namespace fennick::engine
