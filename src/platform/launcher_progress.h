#pragma once

namespace fennick {

// Shows in the task bar how much of the work under way is done; does nothing if the desktop does not offer
// it. `fraction` from 0 to 1.
void showLauncherProgress(double fraction);
void hideLauncherProgress();

} // namespace fennick
