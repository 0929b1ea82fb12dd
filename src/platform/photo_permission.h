#pragma once

#include <QCoroTask>

// The user's permission to add pictures to the photo library. Main thread only.
namespace fennick::PhotoPermission {

enum class Status { notDetermined = 0, restricted = 1, denied = 2, authorized = 3, limited = 4 };

// What the user has decided, without asking.
Status status();

// Asks the user in a dialog and returns the resulting status; closing the dialog without an answer decides
// nothing. While the dialog is open, further calls wait for the same answer.
QCoro::Task<Status> request();

} // namespace fennick::PhotoPermission
