#pragma once

#include "engine/recognition/contrast_normaliser.h"
#include "engine/recognition/grey_picture.h"

#include <QImage>
#include <QTransform>

#include <array>

namespace fennick::engine {

// One way of looking at a page. No single one reads every receipt; misreadings differ between them.
struct RecognitionPass {
    int letterHeight; // pixels of a capital; small enough that a stroke is one or two pixels wide
    Strokes strokes;
};

// In the order of their worth: the first two alone read most pages.
inline constexpr std::array recognitionPasses = {
    RecognitionPass{23, Strokes::smoothed},  RecognitionPass{21, Strokes::darkened},
    RecognitionPass{19, Strokes::asPrinted}, RecognitionPass{25, Strokes::asPrinted},
    RecognitionPass{24, Strokes::darkened},  RecognitionPass{30, Strokes::smoothed},
    RecognitionPass{27, Strokes::thickened}, RecognitionPass{24, Strokes::outlined},
};

// A page that is ready for its passes: even paper, level lines, cropped to its print.
struct PreparedPage {
    GreyPicture picture;
    int letterHeight = 0; // of a capital, in pixels; 0 if no print was found: the picture is not scaled then
    bool wasOnItsSide = false; // it was turned by 90 degrees, and may be upside down now
    QTransform toPage = {};    // from the picture's pixels to the page as it is shown, 0 to 1
};

[[nodiscard]] PreparedPage preparedPage(const QImage &picture);

// Turns a page by 180 degrees.
void turnUpsideDown(PreparedPage &page);

// The middle of a page, large enough to find out which way up it is. Has no `toPage`.
[[nodiscard]] PreparedPage sampleOf(const PreparedPage &page);

// `page` as `pass` wants it; null if the page has no picture. The result's `toSource` maps to the page as it
// is shown, 0 to 1.
[[nodiscard]] DerivedPicture pictureFor(const PreparedPage &page, const RecognitionPass &pass);

} // namespace fennick::engine
