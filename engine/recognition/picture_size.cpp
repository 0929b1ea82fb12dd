#include "engine/recognition/picture_size.h"

#include <algorithm>
#include <cmath>

namespace fennick::engine {

namespace {

constexpr double recognisablePixels = 12e6;
constexpr double renderDotsPerInch = 300;
constexpr double longestPictureSide = 20000;

double area(QSizeF size) {
    return size.width() * size.height();
}

QSize reduced(QSizeF size) {
    double factor = std::min(1.0, std::sqrt(recognisablePixels / area(size)));
    factor = std::min(factor, longestPictureSide / std::max(size.width(), size.height()));
    return (size * factor).toSize().expandedTo(QSize(1, 1));
}

} // namespace

QSize recognisableSize(QSize size) {
    return reduced(size);
}

QSize renderSize(QSizeF points) {
    if (!std::isfinite(points.width()) || !std::isfinite(points.height()) || points.isEmpty()) {
        return {};
    }
    return reduced(points * (renderDotsPerInch / 72));
}

} // namespace fennick::engine
