#pragma once

#include <QFont>

namespace fennick {

// Text sizes relative to the desktop's own.
enum class TextStyle { title, callout, caption, smallestCaption };

// `font` in that size.
QFont styledFont(QFont font, TextStyle style);

} // namespace fennick
