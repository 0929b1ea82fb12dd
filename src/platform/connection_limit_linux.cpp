#include "platform/connection_limit.h"

#include <fcntl.h>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace fennick {

namespace {

// None for what is no TCP connection.
std::optional<quint16> remotePortOf(int socket) {
    sockaddr_in6 address{}; // IPv4 has its port in the same place
    socklen_t size = sizeof address;
    const bool isConnected = ::getpeername(socket, reinterpret_cast<sockaddr *>(&address), &size) == 0;
    const bool isInternet = address.sin6_family == AF_INET || address.sin6_family == AF_INET6;
    return isConnected && isInternet ? std::optional(ntohs(address.sin6_port)) : std::nullopt;
}

quint64 receivedOver(int socket) {
    tcp_info information{};
    socklen_t size = sizeof information;
    const int result = ::getsockopt(socket, IPPROTO_TCP, TCP_INFO, &information, &size);
    return result == 0 ? information.tcpi_bytes_received : 0;
}

// Works on a copy: the owner may close the original at any moment, and its number may then be another's.
void cutIfBeyond(int socket, quint16 remotePort, quint64 receivedBytes) {
    const int copy = ::fcntl(socket, F_DUPFD_CLOEXEC, 0);
    if (copy < 0) {
        return;
    }
    if (remotePortOf(copy) == remotePort && receivedOver(copy) > receivedBytes) {
        ::shutdown(copy, SHUT_RDWR);
    }
    ::close(copy);
}

} // namespace

void cutConnectionsBeyond(quint16 remotePort, qint64 receivedBytes) {
    std::error_code error;
    std::filesystem::directory_iterator entry("/proc/self/fd", error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code isClosed;
        if (read_symlink(entry->path(), isClosed).native().starts_with("socket:")) {
            cutIfBeyond(std::stoi(entry->path().filename()), remotePort, static_cast<quint64>(receivedBytes));
        }
    }
}

} // namespace fennick
