#pragma once

#include <atomic>
#include <functional>

namespace fennick {

// A copy of this process that works beside it and ends with it, whatever happens. A copy has only the thread
// that made it, so no other thread may hold a lock then. On a system that cannot copy a process, `finish`
// returns 0. Owned by the caller that waits for its work.
class WorkerProcess {
public:
    // Runs `work` in the copy, which counts in `done` what it has finished and then ends without tidying up.
    // It may use a `memoryShare`th of the memory that this process may use.
    WorkerProcess(const std::function<void(std::atomic<int> &done)> &work, int memoryShare);
    ~WorkerProcess();
    WorkerProcess(const WorkerProcess &) = delete;
    WorkerProcess &operator=(const WorkerProcess &) = delete;

    // Waits for the copy's end and returns how much it has finished: 0 if no copy could be made.
    int finish();

private:
    std::atomic<int> *done_; // memory that both processes see
    int process_ = -1;
};

} // namespace fennick
