#include "engine/service/request_guard.h"

#include <array>

namespace fennick::engine {

namespace {

constexpr std::array thisMachine = {"127.0.0.1", "localhost", "[::1]"};
constexpr quint16 httpPort = 80;

// Browsers and clients leave the port out when it is the one of http.
bool namesThisEngine(const QByteArray &host, quint16 port) {
    for (const QByteArray name : thisMachine) {
        if (host == name + ':' + QByteArray::number(port) || (port == httpPort && host == name)) {
            return true;
        }
    }
    return false;
}

QByteArray mediaType(const QByteArray &contentType) {
    const qsizetype parameters = contentType.indexOf(';');
    return (parameters < 0 ? contentType : contentType.first(parameters)).trimmed().toLower();
}

} // namespace

std::optional<int> refusalOf(const HttpHead &head, quint16 port) {
    const QByteArray host = head.host.toLower();
    if (!namesThisEngine(host, port)) {
        return 403;
    }
    if (head.origin && head.origin->toLower() != "http://" + host) {
        return 403;
    }
    if (head.method == "POST" && mediaType(head.contentType) != "application/json") {
        return 415;
    }
    return std::nullopt;
}

} // namespace fennick::engine
