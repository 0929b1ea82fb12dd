#pragma once

class QPDFPageObjectHelper;

namespace fennick {

// How far a page's drawing instructions leave the stack of graphics states out of balance.
struct SavedStates {
    int missing = 0; // restored without having been saved
    int left = 0;    // saved and not restored, once the missing ones are there
};

[[nodiscard]] SavedStates savedStates(QPDFPageObjectHelper &page);

} // namespace fennick
