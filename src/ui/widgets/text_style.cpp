#include "ui/widgets/text_style.h"

#include <cmath>

namespace fennick {

namespace {

double scale(TextStyle style) {
    switch (style) {
    case TextStyle::title:
        return 1.25;
    case TextStyle::callout:
        return 0.95;
    case TextStyle::caption:
        return 0.9;
    case TextStyle::smallestCaption:
        return 0.82;
    }
    Q_UNREACHABLE();
}

} // namespace

QFont styledFont(QFont font, TextStyle style) {
    if (font.pixelSize() > 0) { // then it has no size in points
        font.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * scale(style))));
    } else {
        font.setPointSizeF(font.pointSizeF() * scale(style));
    }
    return font;
}

} // namespace fennick
