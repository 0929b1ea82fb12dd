#pragma once

#include <QSize>
#include <QSizeF>

// How many pixels the engine is willing to hold. A few bytes of a file can claim billions of pixels, so sizes
// are looked at before anything is decoded or drawn.
namespace fennick::engine {

// The largest picture that is decoded at all: above every phone's main camera mode (50 megapixels), below
// what two requests at once could not hold (100 megapixels are 400 MB).
bool isDecodableSize(QSize size);

// `size`, reduced in proportion to what text recognition can use (12 megapixels: a page at 350 dpi).
QSize recognisableSize(QSize size);

// The pixels of a page of `points` (1/72 inch) at the resolution for recognition, reduced likewise; empty for
// a page without an area.
QSize renderSize(QSizeF points);

} // namespace fennick::engine
