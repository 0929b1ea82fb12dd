#pragma once

#include "engine/recognition/grey_picture.h"

#include <vector>

namespace fennick::engine {

// A part of a page across its whole width.
struct PageStrip {
    GreyPicture picture;
    int top = 0; // in pixels of the page
};

// `page`, whose letters are `letterHeight` pixels high, cut between lines of print below its heading.
// Tesseract takes letters twice as high as most of a block's for pictures and leaves them out; a shop's name
// is often printed so, and in a small block it is read. One strip when there is no place to cut.
std::vector<PageStrip> headingAndRest(const GreyPicture &page, int letterHeight);

} // namespace fennick::engine
