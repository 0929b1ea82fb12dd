#include "support/host_stalls.h"

#include <unistd.h>

namespace fennick::test {

HostStalls::HostStalls() {
    if (!file_.open()) {
        qFatal("No temporary file: %s", qPrintable(file_.errorString()));
    }
    thread_ = std::jthread([this](const std::stop_token &stop) { watch(stop); });
}

void HostStalls::watch(const std::stop_token &stop) {
    using std::chrono::milliseconds;
    using Clock = std::chrono::steady_clock;
    constexpr milliseconds nap{1};
    constexpr int napsBetweenWrites = 25;
    for (int nth = 0; !stop.stop_requested(); ++nth) {
        const auto begin = Clock::now();
        std::this_thread::sleep_for(nap);
        if (nth % napsBetweenWrites == 0 &&
            (::pwrite(file_.handle(), "x", 1, 0) != 1 || ::fsync(file_.handle()) != 0)) {
            return;
        }
        const auto wait = std::chrono::duration_cast<milliseconds>(Clock::now() - begin - nap).count();
        if (wait > longest_) {
            longest_ = wait;
        }
    }
}

} // namespace fennick::test
