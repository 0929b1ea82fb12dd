#pragma once

#include <QByteArray>

#include <optional>

namespace fennick::GeminiClient {

enum class UnpackingFailure { damaged, cut, tooLarge };

// As much of a body as could be unpacked, and why that is not all of it.
struct UnpackedBody {
    QByteArray bytes;
    std::optional<UnpackingFailure> failure;
};

// Undoes the Content-Encoding of a body: "gzip" or "deflate" (RFC 9110, 8.4.1); none and "identity" leave it
// as it is, any other is `damaged`. Returns at most `limit` bytes. The network library could do this as well,
// but does not report a packed body that lacks its end.
[[nodiscard]] UnpackedBody unpackedBody(const QByteArray &body, const QByteArray &encoding, qint64 limit);

} // namespace fennick::GeminiClient
