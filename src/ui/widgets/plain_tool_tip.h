#pragma once

#include "text/display_text.h"

#include <QString>

namespace fennick {

// `text` as a plain-text tool tip, without characters that could disguise it. Qt renders tool tips that look
// like markup as markup, and receipts, paths and answers contain text from outside. Empty for an empty text.
inline QString plainToolTip(const QString &text) {
    using namespace Qt::StringLiterals;
    return text.isEmpty() ? QString() : u"<span>%1</span>"_s.arg(displayText(text).toHtmlEscaped());
}

} // namespace fennick
