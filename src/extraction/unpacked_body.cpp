#include "extraction/unpacked_body.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <memory>

namespace fennick::GeminiClient {

namespace {

// The largest window; 32 more lets zlib find out by itself whether its own header or that of gzip is there.
constexpr int windowBits = MAX_WBITS + 32;

UnpackedBody inflated(const QByteArray &body, qint64 limit) {
    z_stream stream{};
    if (inflateInit2(&stream, windowBits) != Z_OK) {
        return {{}, UnpackingFailure::damaged};
    }
    const std::unique_ptr<z_stream, decltype(&inflateEnd)> end(&stream, &inflateEnd);
    QByteArray packed = body; // zlib takes its input as something that it could write to
    stream.next_in = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    UnpackedBody result;
    std::array<char, 64 * 1024> part{};
    int state = Z_OK;
    while (state == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef *>(part.data());
        stream.avail_out = part.size();
        state = inflate(&stream, Z_NO_FLUSH);
        result.bytes.append(part.data(), static_cast<qsizetype>(part.size() - stream.avail_out));
        if (result.bytes.size() > limit) {
            result.bytes.truncate(limit);
            result.failure = UnpackingFailure::tooLarge;
            return result;
        }
    }
    if (state == Z_BUF_ERROR) { // it wants more than there is
        result.failure = UnpackingFailure::cut;
    } else if (state != Z_STREAM_END) {
        result.failure = UnpackingFailure::damaged;
    }
    return result;
}

} // namespace

UnpackedBody unpackedBody(const QByteArray &body, const QByteArray &encoding, qint64 limit) {
    const QByteArray name = encoding.trimmed().toLower();
    if (name.isEmpty() || name == "identity") {
        const bool fits = body.size() <= limit;
        return {body.first(std::min<qint64>(body.size(), limit)),
                fits ? std::nullopt : std::optional(UnpackingFailure::tooLarge)};
    }
    if (name != "gzip" && name != "x-gzip" && name != "deflate") {
        return {{}, UnpackingFailure::damaged};
    }
    return inflated(body, limit);
}

} // namespace fennick::GeminiClient
