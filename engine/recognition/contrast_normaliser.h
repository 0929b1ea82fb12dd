#pragma once

#include "engine/recognition/grey_picture.h"

namespace fennick::engine {

// How the strokes of the print are made ready for recognition.
enum class Strokes {
    asPrinted,
    darkened,  // faint print and thin strokes gain contrast
    smoothed,  // darkened after the dots of needle and thermal print have run together
    thickened, // broken letters join up
    outlined,  // pure black on white, by contrast with the paper right around them
};

// `picture` on even, light paper: shadows, creases and tinted paper vanish, print stays.
GreyPicture onEvenPaper(GreyPicture picture);

GreyPicture withStrokes(GreyPicture picture, Strokes strokes);

} // namespace fennick::engine
