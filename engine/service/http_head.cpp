#include "engine/service/http_head.h"

#include <QList>

#include <algorithm>
#include <cstring>
#include <utility>

namespace fennick::engine {

namespace {

// An absent length is no body; nullopt is a malformed or contradictory one (RFC 9112, 6.3).
std::optional<qsizetype> lengthIn(const QByteArray &value, std::optional<qsizetype> earlier) {
    bool isNumber = false;
    const qsizetype length = value.toLongLong(&isNumber);
    if (!isNumber || length < 0 || value.startsWith('+') || (earlier && *earlier != length)) {
        return std::nullopt;
    }
    return length;
}

// Headers that a request may have once.
struct SingleHeaders {
    std::optional<QByteArray> host;
    std::optional<QByteArray> contentType;
    std::optional<qsizetype> length;
};

// False if there was a value already.
bool setOnce(std::optional<QByteArray> &value, const QByteArray &read) {
    return !std::exchange(value, read).has_value();
}

// The characters of a header's name (RFC 9110, 5.6.2).
bool isToken(const QByteArray &name) {
    return !name.isEmpty() && std::ranges::all_of(name, [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return code > ' ' && code < 127 && !std::strchr("\"(),/:;<=>?@[\\]{}", character);
    });
}

// 0 if the header is fine, else the status to refuse the request with.
int readHeader(const QByteArray &line, HttpHead &head, SingleHeaders &single) {
    const qsizetype colon = line.indexOf(':');
    if (colon < 0 || !isToken(line.first(colon))) {
        return 400; // also for a line that goes on with the one before, which nobody may send any more
    }
    const QByteArray name = line.first(colon).toLower();
    const QByteArray value = line.sliced(colon + 1).trimmed();
    if (value.contains('\r') || value.contains('\0')) {
        return 400;
    }
    if (name == "content-length") {
        single.length = lengthIn(value, single.length);
        return single.length ? 0 : 400;
    }
    if (name == "host") {
        return setOnce(single.host, value) ? 0 : 400;
    }
    if (name == "origin") {
        return setOnce(head.origin, value) ? 0 : 400;
    }
    if (name == "content-type") {
        return setOnce(single.contentType, value) ? 0 : 400;
    }
    if (name == "transfer-encoding") {
        return value.toLower() == "chunked" ? 411 : 501;
    }
    if (name == "expect") {
        head.expectsContinue = value.toLower() == "100-continue";
    }
    return 0;
}

} // namespace

std::expected<HttpHead, int> parsedHead(const QByteArray &text) {
    QList<QByteArray> lines = text.split('\n');
    const QList<QByteArray> words = lines.takeFirst().trimmed().split(' ');
    if (words.size() != 3 || !words[1].startsWith('/') || !words[2].startsWith("HTTP/")) {
        return std::unexpected(400);
    }
    if (!words[2].startsWith("HTTP/1.")) {
        return std::unexpected(505);
    }

    HttpHead head{.method = words[0], .target = QUrl::fromEncoded(words[1])};
    SingleHeaders single;
    for (const QByteArray &line : std::as_const(lines)) {
        const QByteArray header = line.endsWith('\r') ? line.chopped(1) : line;
        if (const int status = readHeader(header, head, single)) {
            return std::unexpected(status);
        }
    }
    if (!single.host) {
        return std::unexpected(400);
    }
    head.host = *single.host;
    head.contentType = single.contentType.value_or(QByteArray());
    head.contentLength = single.length.value_or(0);
    return head;
}

} // namespace fennick::engine
