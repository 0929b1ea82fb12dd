#include "platform/connection_limit.h"

#include <fcntl.h>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <string>
#include <system_error>

namespace fennick {

namespace {

bool isSocket(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode);
}

// None for what is no TCP connection.
quint64 receivedOver(int socket) {
    tcp_info information{};
    socklen_t size = sizeof information;
    const int result = ::getsockopt(socket, IPPROTO_TCP, TCP_INFO, &information, &size);
    return result == 0 ? information.tcpi_bytes_received : 0;
}

// Works on a copy: the owner may close the original at any moment, and its number may then be another's.
void cutIfBeyond(int descriptor, quint64 receivedBytes) {
    if (!isSocket(descriptor)) {
        return;
    }
    const int copy = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    if (copy < 0) {
        return;
    }
    if (receivedOver(copy) > receivedBytes) {
        ::shutdown(copy, SHUT_RDWR);
    }
    ::close(copy);
}

} // namespace

void cutConnectionsBeyond(qint64 receivedBytes) {
    std::error_code error;
    std::filesystem::directory_iterator entry("/proc/self/fd", error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename();
        int descriptor = -1;
        std::from_chars(name.data(), name.data() + name.size(), descriptor);
        cutIfBeyond(descriptor, static_cast<quint64>(receivedBytes));
    }
}

} // namespace fennick
