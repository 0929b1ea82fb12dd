#pragma once

#include <chrono>

namespace fennick {

// The processor time that the calling thread has used so far: unlike the time on a clock, other programs do
// not add to it.
[[nodiscard]] std::chrono::nanoseconds threadProcessorTime();

} // namespace fennick
