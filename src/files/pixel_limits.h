#pragma once

#include <QtGlobal>

// What a receipt may cost in memory. A file's own header decides, before anything is allocated for it.
namespace fennick {

// The largest picture or page that is decoded or rendered. Cameras of today reach 200 megapixels; a PDF page
// may claim 14,400 points a side, which at 200 dots per inch would take 6 GB.
inline constexpr qint64 maximumPixelCount = 200'000'000;

constexpr bool isAcceptablePixelCount(qint64 width, qint64 height) {
    return width > 0 && height > 0 && width <= maximumPixelCount / height;
}

} // namespace fennick
