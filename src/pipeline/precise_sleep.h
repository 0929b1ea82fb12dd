#pragma once

#include <QCoroTask>

#include <chrono>

namespace fennick {

// Suspends the calling task until `due`: never shorter, and at most a few milliseconds longer.
[[nodiscard]] QCoro::Task<> sleepUntil(std::chrono::steady_clock::time_point due);

} // namespace fennick
