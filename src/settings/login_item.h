#pragma once

namespace fennick {

// Registers the program to be started at login, or undoes it. Returns whether the wanted state holds now;
// nothing is done when it already does.
bool setLaunchAtLogin(bool enabled);

} // namespace fennick
