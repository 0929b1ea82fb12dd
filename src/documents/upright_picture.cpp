#include "documents/upright_picture.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace fennick {

namespace {

// How the stored rows and columns are read to get the upright picture.
struct Reading {
    bool rowsBecomeColumns;
    bool columnsBackwards;
    bool rowsBackwards;
};

Reading readingFor(int orientation) {
    switch (orientation) {
    case 2:
        return {false, true, false};
    case 3:
        return {false, true, true};
    case 4:
        return {false, false, true};
    case 5:
        return {true, false, false};
    case 6:
        return {true, false, true};
    case 7:
        return {true, true, true};
    case 8:
        return {true, true, false};
    default:
        return {false, false, false};
    }
}

void copyRows(const Plane &source, Plane &target, Reading reading) {
    const int width = source.width();
    for (int y = 0; y < source.height(); ++y) {
        const std::uint8_t *from = source.row(reading.rowsBackwards ? source.height() - 1 - y : y);
        if (reading.columnsBackwards) {
            std::reverse_copy(from, from + width, target.row(y));
        } else {
            std::memcpy(target.row(y), from, static_cast<std::size_t>(width));
        }
    }
}

// Works in squares that stay in the processor's cache, as one side is always walked across rows: a square of
// source and target takes 8 KB, of the usual 32.
void transposeSquares(const Plane &source, Plane &target, Reading reading) {
    constexpr int square = 64;
    for (int top = 0; top < target.height(); top += square) {
        const int bottom = std::min(top + square, target.height());
        for (int left = 0; left < target.width(); left += square) {
            const int right = std::min(left + square, target.width());
            for (int y = top; y < bottom; ++y) {
                const int column = reading.columnsBackwards ? source.width() - 1 - y : y;
                std::uint8_t *to = target.row(y);
                for (int x = left; x < right; ++x) {
                    to[x] = source.row(reading.rowsBackwards ? source.height() - 1 - x : x)[column];
                }
            }
        }
    }
}

} // namespace

YuvPicture uprightPicture(YuvPicture picture, int orientation) {
    if (orientation <= 1 || orientation > 8) {
        return picture;
    }
    const Reading reading = readingFor(orientation);
    for (Plane &plane : picture.planes) {
        Plane turned = reading.rowsBecomeColumns ? Plane(plane.height(), plane.width())
                                                 : Plane(plane.width(), plane.height());
        if (reading.rowsBecomeColumns) {
            transposeSquares(plane, turned, reading);
        } else {
            copyRows(plane, turned, reading);
        }
        plane = std::move(turned);
    }
    if (reading.rowsBecomeColumns) {
        std::swap(picture.width, picture.height);
        std::swap(picture.lumaPerChromaX, picture.lumaPerChromaY);
    }
    return picture;
}

} // namespace fennick
