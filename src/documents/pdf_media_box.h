#pragma once

#include <QSizeF>

class QPDFPageObjectHelper;

namespace fennick {

// The size in points (1/72 inch) of the page's media box as the page stands upright: a quarter turn exchanges
// width and height. US Letter for a page without a usable media box, as PDF readers have it.
[[nodiscard]] QSizeF uprightMediaBox(QPDFPageObjectHelper &page);

// Makes the crop box the media box, for a renderer that shows the crop box.
void cropToMediaBox(QPDFPageObjectHelper &page);

} // namespace fennick
