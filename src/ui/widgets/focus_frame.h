#pragma once

#include <QString>

namespace fennick {

// A style sheet for flat tool buttons that marks the focused one clearly, because many desktop styles hardly
// show the focus. `paletteColour` is a palette role as style sheets name it.
inline QString focusFrameStyle(const QString &paletteColour) {
    using namespace Qt::StringLiterals;
    return u"QToolButton { border: 1px solid transparent; border-radius: 4px; }"
           "QToolButton:hover { background: rgba(127, 127, 127, 40); }"
           "QToolButton:pressed { background: rgba(127, 127, 127, 90); }"
           "QToolButton:focus { border-color: palette(%1); }"_s.arg(paletteColour);
}

} // namespace fennick
