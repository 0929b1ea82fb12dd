#pragma once

#include <QtGlobal>

namespace fennick {

// Whether the program at the other end of this accepted connection over 127.0.0.1 is one of this program's
// user, as the system's list of sockets says. False when the list does not say whose it is.
bool comesFromOwnUser(qintptr connection);

} // namespace fennick
