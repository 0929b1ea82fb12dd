#pragma once

#include <QString>

#include <exception>

namespace fennick {

// Describes the exception in a sentence for the user. Also accepts exceptions from other threads.
QString exceptionText(const std::exception_ptr &exception);

} // namespace fennick
