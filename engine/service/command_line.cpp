#include "engine/service/command_line.h"

namespace fennick::engine {

using namespace Qt::StringLiterals;

std::expected<ListeningPlace, QString> requestedPlace(const QStringList &arguments) {
    if (arguments.isEmpty()) {
        return ListeningPlace{};
    }
    const QString &option = arguments.first();
    if (option != u"--port" && option != u"--socket") {
        return std::unexpected(u"unknown argument: "_s + option);
    }
    if (arguments.size() == 1) {
        return std::unexpected(option + u" needs a number"_s);
    }
    if (arguments.size() > 2) {
        return std::unexpected(u"unknown argument: "_s + arguments[2]);
    }
    bool isNumber = false;
    const quint16 number = arguments[1].toUShort(&isNumber);
    if (!isNumber) {
        return std::unexpected(u"not a number from 0 to 65535: "_s + arguments[1]);
    }
    return option == u"--port" ? ListeningPlace{.port = number} : ListeningPlace{.socket = number};
}

} // namespace fennick::engine
