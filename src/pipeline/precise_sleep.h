#pragma once

#include <QCoroTask>

#include <chrono>

namespace fennick {

// Suspends the calling task until `due`, never less and at most a few milliseconds more.
[[nodiscard]] QCoro::Task<> sleepUntil(std::chrono::steady_clock::time_point due);

} // namespace fennick
