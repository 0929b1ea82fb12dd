#pragma once

#include <functional>

class QObject;

namespace fennick {

// Calls `mayBeGone` from the event loop whenever the desktop's tray may have vanished (its panel has ended or
// crashed), for as long as `owner` lives. Main thread.
void watchTray(QObject *owner, std::function<void()> mayBeGone);

} // namespace fennick
