#pragma once

#include <QRect>

#include <allheaders.h>

#include <memory>

// Owners of what Leptonica's functions return. Null where the function failed.
namespace fennick::engine {

template <typename Object, void (*destroy)(Object **)>
struct LeptonicaDeleter {
    void operator()(Object *object) const { destroy(&object); }
};

using BoxPointer = std::unique_ptr<Box, LeptonicaDeleter<Box, boxDestroy>>;
using BoxList = std::unique_ptr<Boxa, LeptonicaDeleter<Boxa, boxaDestroy>>;
using PictureList = std::unique_ptr<Pixa, LeptonicaDeleter<Pixa, pixaDestroy>>;
using NumberList = std::unique_ptr<Numa, LeptonicaDeleter<Numa, numaDestroy>>;
using PointList = std::unique_ptr<Pta, LeptonicaDeleter<Pta, ptaDestroy>>;

// The box at `index`, which must be in the list.
inline QRect boxAt(const BoxList &boxes, int index) {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    boxaGetBoxGeometry(boxes.get(), index, &left, &top, &width, &height);
    return QRect(left, top, width, height);
}

} // namespace fennick::engine
