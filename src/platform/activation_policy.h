#pragma once

#include <QWindow>

namespace fennick {

// Whether the program shows in the task bar (regular) or only through its tray icon (accessory).
enum class ActivationPolicy { regular, accessory };

// Whether the window system lets a program take its windows out of the task bar. Wayland lets nobody.
bool canHideFromTaskBar();

// Applies the policy to a window on the screen at once, without hiding it. Nothing where that cannot be done
// or for a window that is not shown.
void setActivationPolicy(QWindow *window, ActivationPolicy policy);

} // namespace fennick
