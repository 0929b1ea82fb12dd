#include "platform/worker_process.h"

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <new>

namespace fennick {

namespace {

static_assert(std::atomic<int>::is_always_lock_free);

std::atomic<int> *makeSharedCounter() {
    void *const memory =
        ::mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? nullptr : new (memory) std::atomic<int>(0);
}

void useOnlyAShareOfMemory(int share) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_DATA, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY) {
        limit.rlim_cur /= static_cast<rlim_t>(share);
        ::setrlimit(RLIMIT_DATA, &limit);
    }
}

// An exception must not escape from the copy's work: the copy would continue as if it were this process.
void workToTheEnd(const std::function<void(std::atomic<int> &done)> &work, std::atomic<int> &done) {
    try {
        work(done);
    } catch (...) {
        return; // what was counted before counts
    }
}

} // namespace

WorkerProcess::WorkerProcess(const std::function<void(std::atomic<int> &done)> &work, int memoryShare)
    : done_(makeSharedCounter()) {
    if (done_ == nullptr) {
        return;
    }
    const pid_t parent = ::getpid();
    process_ = ::fork();
    if (process_ != 0) {
        return;
    }
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() == parent) {
        useOnlyAShareOfMemory(memoryShare);
        workToTheEnd(work, *done_);
    }
    ::_exit(0);
}

WorkerProcess::~WorkerProcess() {
    finish();
    if (done_ != nullptr) {
        ::munmap(done_, sizeof(std::atomic<int>));
    }
}

int WorkerProcess::finish() {
    if (process_ > 0) {
        while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
        }
        process_ = -1;
    }
    return done_ == nullptr ? 0 : done_->load();
}

} // namespace fennick
