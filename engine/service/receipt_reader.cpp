#include "engine/service/receipt_reader.h"

#include "engine/recognition/document_reader.h"

#include <QSemaphore>

namespace fennick::engine {

namespace {

// A scan of 35 megapixels takes 140 MB while it is decoded: more of them at once would crowd out other
// programs.
QSemaphore documentsAtOnce(2);

} // namespace

std::expected<ReceiptFields, ReadError> readReceiptFile(const QByteArray &bytes, QDate today,
                                                        const std::stop_token &stop,
                                                        const PdfReading &pagesOf) {
    documentsAtOnce.acquire();
    const QSemaphoreReleaser document(documentsAtOnce);
    const auto isEnough = [today](const QList<Reading> &readings) {
        return isBeyondDoubt(readings, today);
    };
    const std::expected<QList<Reading>, ReadError> readings = readDocument(bytes, isEnough, stop, pagesOf);
    if (!readings) {
        return std::unexpected(readings.error());
    }
    return readReceipt(*readings, today);
}

} // namespace fennick::engine
