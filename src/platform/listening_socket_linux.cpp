#include "platform/listening_socket.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

namespace fennick {

namespace {

// As many as may come while a child starts.
constexpr int longestQueue = 64;

std::unexpected<std::error_code> systemsReason() {
    return std::unexpected(std::error_code(errno, std::generic_category()));
}

} // namespace

std::expected<std::unique_ptr<ListeningSocket>, std::error_code> ListeningSocket::open() {
    const int descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor < 0) {
        return systemsReason();
    }
    std::unique_ptr<ListeningSocket> socket(new ListeningSocket(descriptor, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    if (::bind(descriptor, generic, size) != 0 || ::listen(descriptor, longestQueue) != 0 ||
        ::getsockname(descriptor, generic, &size) != 0) {
        return systemsReason();
    }
    socket->port_ = ntohs(address.sin_port);
    return socket;
}

ListeningSocket::ListeningSocket(int descriptor, quint16 port)
    : descriptor_(descriptor)
    , port_(port) {}

ListeningSocket::~ListeningSocket() {
    ::close(descriptor_);
}

void keepFromChildren(int descriptor) {
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

} // namespace fennick
