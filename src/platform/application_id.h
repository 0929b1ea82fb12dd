#pragma once

#include <QString>

namespace fennick {

// Names the program to the system: desktop file, D-Bus name, stored secrets, watcher thread. It must stay the
// same across releases, or stored keys are lost.
inline const QString applicationId = QString::fromUtf8("org.fennick.Fennick");

} // namespace fennick
