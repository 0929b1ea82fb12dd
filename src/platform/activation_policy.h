#pragma once

#include <QWindow>

namespace fennick {

// Whether the program shows in the task bar (regular) or only through its tray icon (accessory).
enum class ActivationPolicy { regular, accessory };

// Whether a program can remove its windows from the task bar under this window system. Not under Wayland.
bool canHideFromTaskBar();

// Applies the policy to a window on the screen at once, without hiding it. Does nothing if
// that is not possible or the window is not shown.
void setActivationPolicy(QWindow *window, ActivationPolicy policy);

} // namespace fennick
