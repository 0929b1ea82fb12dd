#include "platform/thread_time.h"

#include <ctime>

namespace fennick {

std::chrono::nanoseconds threadProcessorTime() {
    timespec used{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
}

} // namespace fennick
