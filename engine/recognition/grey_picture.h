#pragma once

#include <QImage>
#include <QTransform>

#include <memory>

struct Pix;

namespace fennick::engine {

struct GreyPictureDeleter {
    void operator()(Pix *picture) const;
};

// A picture of eight-bit greys in Leptonica's form, which every step of its preparation works on. Null =
// none.
using GreyPicture = std::unique_ptr<Pix, GreyPictureDeleter>;

// A picture made from another, and where its points lay in that.
struct DerivedPicture {
    GreyPicture picture;
    QTransform toSource = {};
};

// `picture` without its colours; null for a null picture.
GreyPicture greyPicture(const QImage &picture);

} // namespace fennick::engine
