#pragma once

#include <QtGlobal>

#include <expected>
#include <memory>
#include <system_error>

namespace fennick {

// A port of this machine that is held for a child: it listens on 127.0.0.1 from the start to its end, and a
// child that is handed the socket accepts its connections. While it is held nobody else can have the port,
// whether or not a child is at work. It is closed in children that it is not handed to.
class ListeningSocket {
public:
    // On a port that the system chooses.
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

// For the child that a socket was handed to: its own children do not get it.
void keepFromChildren(int descriptor);

} // namespace fennick
