#include "engine/command_line.h"

namespace fennick {

using namespace Qt::StringLiterals;

std::expected<quint16, QString> requestedPort(const QStringList &arguments) {
    if (arguments.isEmpty()) {
        return defaultPort;
    }
    if (arguments.first() != u"--port") {
        return std::unexpected(u"unknown argument: "_s + arguments.first());
    }
    if (arguments.size() == 1) {
        return std::unexpected(u"--port needs a number"_s);
    }
    if (arguments.size() > 2) {
        return std::unexpected(u"unknown argument: "_s + arguments[2]);
    }
    bool isNumber = false;
    const quint16 port = arguments[1].toUShort(&isNumber);
    if (!isNumber) {
        return std::unexpected(u"not a port number (0 to 65535): "_s + arguments[1]);
    }
    return port;
}

} // namespace fennick
