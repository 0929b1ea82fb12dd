#include "engine/recognition/paper_straightener.h"

#include <allheaders.h>

#include <cmath>
#include <numbers>
#include <utility>

namespace fennick::engine {

namespace {

constexpr int inkBelow = 150;
constexpr float largestSlant = 12;
// The picture may be made smaller by these factors to find the slant, first to a degree, then to a hundredth.
constexpr int coarseReduction = 4;
constexpr int fineReduction = 2;
// Smaller ones do not trouble the recogniser, but every turn softens the letters.
constexpr float smallestSlant = 0.2F;
// Leptonica's ratio of the best to the worst angle; it advises at least 3 for pages full of text.
constexpr float leastCertainty = 2.5F;

// Where the points of a picture that was turned clockwise around its middle were before.
QTransform turnedBack(const GreyPicture &picture, float radians) {
    const double x = pixGetWidth(picture.get()) / 2.0;
    const double y = pixGetHeight(picture.get()) / 2.0;
    return QTransform::fromTranslate(-x, -y) * QTransform().rotateRadians(-static_cast<double>(radians)) *
           QTransform::fromTranslate(x, y);
}

} // namespace

DerivedPicture straightened(GreyPicture picture) {
    if (!picture) {
        return {};
    }
    const GreyPicture ink(pixThresholdToBinary(picture.get(), inkBelow));
    const GreyPicture inner(ink ? pixRemoveBorderConnComps(ink.get(), 8) : nullptr);
    if (!inner) {
        return {.picture = std::move(picture)};
    }
    const GreyPicture edges(pixXor(nullptr, ink.get(), inner.get()));
    if (edges) {
        pixSetMasked(picture.get(), edges.get(), 200);
    }

    float slant = 0;
    float certainty = 0;
    const bool isFound = pixFindSkewSweepAndSearch(inner.get(), &slant, &certainty, coarseReduction,
                                                   fineReduction, largestSlant, 1, 0.01F) == 0;
    if (!isFound || certainty < leastCertainty || std::abs(slant) < smallestSlant) {
        return {.picture = std::move(picture)};
    }
    const float radians = slant * std::numbers::pi_v<float> / 180;
    GreyPicture turned(pixRotate(picture.get(), radians, L_ROTATE_AREA_MAP, L_BRING_IN_WHITE, 0, 0));
    if (!turned) {
        return {.picture = std::move(picture)};
    }
    const QTransform back = turnedBack(turned, radians);
    return {.picture = std::move(turned), .toSource = back};
}

} // namespace fennick::engine
