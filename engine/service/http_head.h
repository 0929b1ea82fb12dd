#pragma once

#include <QByteArray>
#include <QUrl>

#include <expected>
#include <optional>

namespace fennick::engine {

// What stands before the body of an HTTP/1.1 request, as far as the engine needs it.
struct HttpHead {
    QByteArray method;
    QUrl target; // path and query
    QByteArray host = {};
    std::optional<QByteArray> origin = {}; // only what browsers send for a page has one
    QByteArray contentType = {};
    qsizetype contentLength = 0;
    bool expectsContinue = false; // the caller waits for "100 Continue" before it sends the body
};

// Takes apart the request line and the headers, without the empty line that ends them. The error is the HTTP
// status to answer with: 400 (also for no "Host" or several, RFC 9112, 3.2), 411 for a body in chunks, 501
// for other transfer codings, 505.
std::expected<HttpHead, int> parsedHead(const QByteArray &head);

} // namespace fennick::engine
