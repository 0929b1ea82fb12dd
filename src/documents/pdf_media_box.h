#pragma once

#include <QRectF>
#include <QSizeF>

class QPDFPageObjectHelper;

namespace fennick {

// The size in points (1/72 inch) of the page's media box as the page stands upright: a quarter turn exchanges
// width and height. US Letter for a page without a usable media box, as PDF readers have it.
[[nodiscard]] QSizeF uprightMediaBox(QPDFPageObjectHelper &page);

// By how many quarter turns clockwise the page is shown turned, 0 to 3.
[[nodiscard]] int quarterTurns(QPDFPageObjectHelper &page);

// What a viewer shows of the page, in its own coordinates: `top` is the smaller y.
[[nodiscard]] QRectF visibleBox(QPDFPageObjectHelper &page);

// Makes the crop box the media box, for a renderer that shows the crop box.
void cropToMediaBox(QPDFPageObjectHelper &page);

} // namespace fennick
