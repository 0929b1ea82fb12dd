#pragma once

#include <QString>
#include <QStringList>

#include <expected>

namespace fennick {

constexpr quint16 defaultPort = 47111;

// The port that `arguments` (without the program's name) ask for: "--port N", 0 = any free one. Otherwise one
// line that says what is wrong.
std::expected<quint16, QString> requestedPort(const QStringList &arguments);

} // namespace fennick
