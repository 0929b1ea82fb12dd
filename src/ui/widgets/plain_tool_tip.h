#pragma once

#include "text/display_text.h"

#include <QString>

namespace fennick {

// `text` as a tool tip that shows it as it stands, less what could disguise it: Qt takes a tool tip that
// looks like markup for markup, and receipts, paths and answers hold text from outside. Empty for an empty
// text.
inline QString plainToolTip(const QString &text) {
    using namespace Qt::StringLiterals;
    return text.isEmpty() ? QString() : u"<span>%1</span>"_s.arg(displayText(text).toHtmlEscaped());
}

} // namespace fennick
