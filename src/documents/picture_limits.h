#pragma once

#include <QtGlobal>

// What a receipt may cost in memory. A file's own header decides, before anything is allocated for it.
namespace fennick {

// The largest picture or page that is decoded or rendered. Cameras of today reach 200 megapixels; a PDF page
// may claim 14,400 points a side, which at 200 dots per inch would take 6 GB.
inline constexpr qint64 maximumPixelCount = 200'000'000;

// And the most that its pixels may take while it is decoded, in bytes: what the converter's limit of 1 GiB
// leaves beside the file, the libraries and a row or two. A PNG file of 199 megapixels is below the one
// limit, and far beyond the other.
inline constexpr qint64 mostPictureMemory = 880'000'000;

constexpr bool isAcceptablePixelCount(qint64 width, qint64 height) {
    return width > 0 && height > 0 && width <= maximumPixelCount / height;
}

} // namespace fennick
