#pragma once

#include <QTemporaryFile>

#include <atomic>
#include <chrono>
#include <thread>

namespace fennick::test {

// Watches how long the machine itself keeps a thread waiting, for the processor or for its disk. A test of a
// span adds the longest such wait to what it allows the program: a busy machine is no fault of the program's.
class HostStalls {
public:
    HostStalls();

    // The longest wait since the construction.
    std::chrono::milliseconds longest() const { return std::chrono::milliseconds(longest_.load()); }

private:
    void watch(const std::stop_token &stop);

    QTemporaryFile file_;
    std::atomic<std::chrono::milliseconds::rep> longest_ = 0;
    std::jthread thread_; // last, so that it ends before what it uses
};

} // namespace fennick::test
