#pragma once

#include <QtGlobal>

namespace fennick {

// Whether the other end of this accepted connection over 127.0.0.1 belongs to this process's user, according
// to the system's list of sockets. False if the list does not contain it.
[[nodiscard]] bool comesFromOwnUser(qintptr connection);

} // namespace fennick
