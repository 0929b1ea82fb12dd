#include "engine/recognition/contrast_normaliser.h"

#include <allheaders.h>

#include <algorithm>

namespace fennick::engine {

namespace {

// A step that fails (pictures of a few pixels) leaves the picture as it was.
GreyPicture replaced(GreyPicture picture, Pix *result) {
    return result ? GreyPicture(result) : std::move(picture);
}

// Grey levels up to 60 turn black, from 240 on white.
GreyPicture darkened(GreyPicture picture, float gamma) {
    Pix *result = pixGammaTRC(nullptr, picture.get(), gamma, 60, 240);
    return replaced(std::move(picture), result);
}

// Black where a pixel is darker than the mean of what surrounds it by a share of the spread there (Sauvola
// and Pietikainen, Adaptive document image binarization, 2000).
GreyPicture outlined(GreyPicture picture) {
    constexpr int halfWindow = 14;
    constexpr float factor = 0.3F;
    constexpr int stripHeight = 300;
    Pix *black = nullptr;
    // In strips: the sums that it works with take sixteen times a picture's size.
    const int strips = std::max(1, pixGetHeight(picture.get()) / stripHeight);
    if (pixSauvolaBinarizeTiled(picture.get(), halfWindow, factor, 1, strips, nullptr, &black) != 0) {
        return picture;
    }
    const GreyPicture mask(black);
    Pix *grey = pixConvert1To8(nullptr, mask.get(), 255, 0);
    return replaced(std::move(picture), grey);
}

} // namespace

GreyPicture onEvenPaper(GreyPicture picture) {
    if (!picture) {
        return {};
    }
    Pix *result = pixBackgroundNormSimple(picture.get(), nullptr, nullptr);
    return replaced(std::move(picture), result);
}

GreyPicture withStrokes(GreyPicture picture, Strokes strokes) {
    if (!picture || strokes == Strokes::asPrinted) {
        return picture;
    }
    if (strokes == Strokes::darkened) {
        return darkened(std::move(picture), 0.5F);
    }
    if (strokes == Strokes::outlined) {
        return outlined(std::move(picture));
    }
    if (strokes == Strokes::smoothed) {
        Pix *smooth = pixBlockconv(picture.get(), 1, 1);
        return darkened(replaced(std::move(picture), smooth), 0.5F);
    }
    Pix *thick = pixErodeGray(picture.get(), 3, 3);
    return darkened(replaced(std::move(picture), thick), 0.7F);
}

} // namespace fennick::engine
