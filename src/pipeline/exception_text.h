#pragma once

#include <QString>

#include <exception>

namespace fennick {

// What went wrong, as a sentence for the user; also for an exception that comes from another thread.
QString exceptionText(const std::exception_ptr &exception);

} // namespace fennick
