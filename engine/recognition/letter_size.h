#pragma once

#include "engine/recognition/grey_picture.h"

#include <QRect>

namespace fennick::engine {

// How large the print of a page is and where it stands.
struct PrintedArea {
    int letterHeight = 0; // of its typical capital, in pixels; 0 = nothing on it looks like letters
    QRect box;            // round all that may be letters
};

// `picture` must be dark on white. Marks are measured by height, tall ones counting more, so that dust and
// the dots that faint print falls apart into do not pass for small letters.
PrintedArea printedArea(const GreyPicture &picture);

} // namespace fennick::engine
