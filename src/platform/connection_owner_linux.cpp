#include "platform/connection_owner.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

namespace fennick {

namespace {

// The two ends of a connection as its other end sees them.
struct Ends {
    sockaddr_in own{};
    sockaddr_in remote{};
};

std::optional<Ends> endsSeenFromThere(int connection) {
    Ends ends;
    socklen_t size = sizeof ends.own;
    if (::getpeername(connection, reinterpret_cast<sockaddr *>(&ends.own), &size) != 0 ||
        ends.own.sin_family != AF_INET) {
        return std::nullopt;
    }
    size = sizeof ends.remote;
    const bool isKnown = ::getsockname(connection, reinterpret_cast<sockaddr *>(&ends.remote), &size) == 0;
    return isKnown ? std::optional(ends) : std::nullopt;
}

// As the lists write it: the words of the address as they lie in memory, and the port as a number.
std::string written(const sockaddr_in &address, const std::string &prefix) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%08X:%04X", address.sin_addr.s_addr, ntohs(address.sin_port));
    return prefix + text.data();
}

// What an IPv6 socket that is connected to an IPv4 address has before that address.
std::string mappedPrefix() {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%016X%08X", 0, htonl(0xFFFF));
    return text.data();
}

// Columns: number, own end, remote end, state, queues, timer, retransmissions, user, and more.
std::optional<uid_t> userIn(const char *list, const std::string &own, const std::string &remote) {
    std::ifstream lines(list);
    std::string line;
    while (std::getline(lines, line)) {
        std::istringstream columns(line);
        std::string number, ownEnd, remoteEnd, state, queues, timer, retransmissions;
        uid_t user = 0;
        if (columns >> number >> ownEnd >> remoteEnd && ownEnd == own && remoteEnd == remote &&
            columns >> state >> queues >> timer >> retransmissions >> user) {
            return user;
        }
    }
    return std::nullopt;
}

std::optional<uid_t> userOf(const Ends &ends) {
    const auto user = userIn("/proc/self/net/tcp", written(ends.own, {}), written(ends.remote, {}));
    if (user) {
        return user;
    }
    const std::string prefix = mappedPrefix();
    return userIn("/proc/self/net/tcp6", written(ends.own, prefix), written(ends.remote, prefix));
}

} // namespace

bool comesFromOwnUser(qintptr connection) {
    const auto ends = endsSeenFromThere(static_cast<int>(connection));
    if (!ends) {
        return false;
    }
    // The list is made while it is read: other connections that come and go may hide one for once.
    constexpr int mostLooks = 3;
    for (int look = 0; look < mostLooks; ++look) {
        if (const auto user = userOf(*ends)) {
            return *user == ::geteuid();
        }
    }
    return false;
}

} // namespace fennick
