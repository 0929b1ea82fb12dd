// Any bytes that a caller may send the engine: the head is taken apart, and the body as the head lets it.
#include "engine/service/generate_request.h"
#include "engine/service/http_head.h"
#include "engine/service/request_guard.h"
#include "fuzz/invariant.h"

#include <QList>
#include <QUrlQuery>

using namespace fennick;
using namespace fennick::engine;
using namespace Qt::StringLiterals;
using fuzz::require;

namespace {

constexpr quint16 port = 47111;

void checkError(const ServiceError &error) {
    require(error.code >= 400 && error.code <= 599, "a refusal has an error status");
    require(!error.status.isEmpty() && !error.message.isEmpty(), "a refusal says why");
    require(fuzz::isWellFormed(error.message), "the reason can be sent");
}

void checkRequest(const HttpHead &head, const QByteArray &body) {
    require(head.contentLength >= 0, "a body has no negative length");
    if (const auto refusal = refusalOf(head, port)) {
        checkError(transportError(*refusal));
        return;
    }
    if (const auto model = requestedModel(head.method, head.target.path()); !model) {
        checkError(model.error());
        return;
    }
    if (const auto key = checkedKey(QUrlQuery(head.target).queryItemValue(u"key"_s)); !key) {
        checkError(key.error());
        return;
    }
    const auto document = inlineDocument(body);
    if (!document) {
        checkError(document.error());
        return;
    }
    require(!document->isEmpty(), "a document is not empty");
    require(body.size() > document->size(), "a document is no larger than what it came in");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray request(reinterpret_cast<const char *>(data), qsizetype(size));
    const qsizetype end = request.indexOf("\r\n\r\n");
    const auto head = parsedHead(end < 0 ? request : request.first(end));
    if (!head) {
        const QList<int> statuses{400, 411, 501, 505};
        require(statuses.contains(head.error()), "a head is refused with one of four statuses");
        checkError(transportError(head.error()));
        return 0;
    }
    checkRequest(*head, end < 0 ? QByteArray() : request.sliced(end + 4));
    return 0;
}
