#include "platform/child_process.h"

#include <QProcess>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

namespace fennick {

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool canLimitMemory = false; // the sanitizers reserve more than any limit
#else
constexpr bool canLimitMemory = true;
#endif

void setLimit(decltype(RLIMIT_DATA) resource, rlim_t value) {
    const rlimit limit{value, value};
    ::setrlimit(resource, &limit);
}

} // namespace

void endWithThisProgram(QProcess &child, const std::optional<ChildLimits> &limits,
                        const std::optional<int> &descriptor) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    // Otherwise the child waits for a message from this process before it runs its program, and waits forever
    // if this process is killed first. It then keeps the inherited connection that holds the program's name
    // on the session bus, and no other instance can start. A vfork child may only make system calls.
    child.setUnixProcessParameters(QProcess::UnixProcessFlag::UseVFork);
#endif
    child.setChildProcessModifier([limits, descriptor, parent = ::getpid()] {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != parent) {
            ::_exit(1); // the parent ended before the signal was requested
        }
        if (descriptor) {
            ::fcntl(*descriptor, F_SETFD, 0);
        }
        if (limits && canLimitMemory) {
            setLimit(RLIMIT_DATA, static_cast<rlim_t>(limits->memory));
        }
        if (limits) {
            setLimit(RLIMIT_CPU, static_cast<rlim_t>(limits->processorTime.count()));
            setLimit(RLIMIT_CORE, 0);
        }
    });
}

} // namespace fennick
