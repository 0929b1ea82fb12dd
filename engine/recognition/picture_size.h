#pragma once

#include <QSize>
#include <QSizeF>

// The sizes at which text is recognised.
namespace fennick::engine {

// `size`, reduced in proportion to what text recognition can use (12 megapixels: a page at 350 dpi).
[[nodiscard]] QSize recognisableSize(QSize size);

// The pixels of a page of `points` (1/72 inch) at the resolution for recognition, reduced likewise; empty for
// a page without an area.
[[nodiscard]] QSize renderSize(QSizeF points);

} // namespace fennick::engine
