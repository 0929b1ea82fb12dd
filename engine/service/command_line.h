#pragma once

#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace fennick::engine {

constexpr quint16 defaultPort = 47111;

// Where to take connections: from a listening socket that was handed down, or else on a port.
struct ListeningPlace {
    quint16 port = defaultPort; // 0 = any free one
    std::optional<int> socket = {};

    bool operator==(const ListeningPlace &other) const = default;
};

// The place that `arguments` (without the program's name) ask for: "--port N", or "--socket N" for the open
// descriptor N, which a parent passes that keeps the port to itself. The error is one line for the user.
std::expected<ListeningPlace, QString> requestedPlace(const QStringList &arguments);

} // namespace fennick::engine
