#pragma once

#include "engine/recognition/grey_picture.h"

#include <QList>
#include <QPointF>
#include <QSize>

#include <optional>

namespace fennick::engine {

// The largest light thing of a picture, in a reduced copy of it that is just large enough to see its edges.
struct LightSheet {
    QSize size;             // of the reduced copy
    double scale = 1;       // pixels of the copy per pixel of the picture
    QList<bool> pixels;     // row by row: whether it is part of the thing; print on it is
    qsizetype area = 0;     // how many of them are
    QList<QPointF> outline; // the first and last points of each of its rows and columns

    bool contains(int x, int y) const { return pixels[static_cast<qsizetype>(y) * size.width() + x]; }
};

// None when `picture` does not fall apart into light and dark.
std::optional<LightSheet> largestLightSheet(const GreyPicture &picture);

} // namespace fennick::engine
