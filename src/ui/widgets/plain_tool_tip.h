#pragma once

#include "text/display_text.h"

#include <QString>

namespace fennick {

// `text` as a tool tip that shows it as it stands, less what could disguise it: Qt takes a tool tip that
// looks like markup for markup, and receipts, paths and answers hold text from outside. Empty for an empty
// text.
inline QString plainToolTip(const QString &text) {
    return text.isEmpty() ? QString()
                          : QStringLiteral("<span>%1</span>").arg(displayText(text).toHtmlEscaped());
}

} // namespace fennick
