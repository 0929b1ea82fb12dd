// Any content of "receipts.json" and "ignored.json": what is understood is written and read back the same.
#include "fuzz/invariant.h"
#include "model/receipt_json.h"

using namespace fennick;
using fuzz::require;

namespace {

void checkReceipts(const QByteArray &json) {
    const auto receipts = decodeReceipts(json);
    if (!receipts) {
        return;
    }
    const QByteArray written = encodeReceipts(*receipts);
    const auto again = decodeReceipts(written);
    require(again.has_value(), "the program reads the receipts that it writes");
    require(*again == *receipts, "receipts come back as they were");
    require(encodeReceipts(*again) == written, "receipts are written the same again");
}

void checkPaths(const QByteArray &json) {
    const auto paths = decodePaths(json);
    if (!paths) {
        return;
    }
    const auto again = decodePaths(encodePaths(*paths));
    require(again.has_value(), "the program reads the paths that it writes");
    require(*again == *paths, "paths come back as they were");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray json(reinterpret_cast<const char *>(data), qsizetype(size));
    checkReceipts(json);
    checkPaths(json);
    return 0;
}
