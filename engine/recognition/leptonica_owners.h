#pragma once

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

} // namespace fennick::engine
