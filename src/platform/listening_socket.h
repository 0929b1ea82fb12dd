#pragma once

#include <QtGlobal>

#include <expected>
#include <memory>
#include <system_error>

namespace fennick {

// A port on 127.0.0.1 that is held for a child process: this object listens on it from construction to
// destruction, and a child that inherits the socket accepts the connections. Meanwhile no other program can
// take the port, whether or not a child runs. Children that are not given the socket do not inherit it.
class ListeningSocket {
public:
    // Listens on a port that the system chooses.
    [[nodiscard]] static std::expected<std::unique_ptr<ListeningSocket>, std::error_code> open();
    ~ListeningSocket();
    ListeningSocket(const ListeningSocket &) = delete;
    ListeningSocket &operator=(const ListeningSocket &) = delete;

    int descriptor() const { return descriptor_; }
    quint16 port() const { return port_; }

private:
    ListeningSocket(int descriptor, quint16 port);

    int descriptor_;
    quint16 port_;
};

// For the child that inherited the socket: its own children do not.
void keepFromChildren(int descriptor);

} // namespace fennick
