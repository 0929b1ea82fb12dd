#pragma once

#include "engine/recognition/grey_picture.h"

#include <QRect>

#include <optional>

namespace fennick::engine {

// Where the print of a page stands.
struct PrintRegion {
    QRect box;             // in pixels of the page
    bool isUpright = true; // false: its lines run from top to bottom or from bottom to top
};

// The largest group of printed lines on a page, whatever it lies on: paper on a scanner's lid, on cardboard,
// on other white paper, or on a table. Print is what is small and darker than what surrounds it, so neither
// the shade of the paper nor that of the ground matters. None if nothing on the page looks like lines of
// print.
[[nodiscard]] std::optional<PrintRegion> printRegion(const GreyPicture &picture);

} // namespace fennick::engine
