#include "engine/service/receipt_reader.h"

#include "engine/fields/reading_facts.h"
#include "engine/recognition/document_reader.h"
#include "engine/service/documents_at_once.h"

namespace fennick::engine {

namespace {

// Readings are only added to; what was found in the earlier ones stays as it is.
void addFacts(QList<ReadingFacts> &facts, const QList<Reading> &readings) {
    for (qsizetype index = facts.size(); index < readings.size(); ++index) {
        facts.append(factsOf(readings[index]));
    }
}

} // namespace

std::expected<ReceiptFields, ReadError> readReceiptFile(const QByteArray &bytes, QDate today,
                                                        const std::stop_token &stop,
                                                        const PdfReading &pagesOf) {
    documentsAtOnce.acquire();
    const QSemaphoreReleaser document(documentsAtOnce);
    QList<ReadingFacts> facts;
    const auto isEnough = [&facts, today](const QList<Reading> &readings) {
        addFacts(facts, readings);
        return isBeyondDoubt(facts, today) || showNothing(facts, today);
    };
    const std::expected<QList<Reading>, ReadError> readings = readDocument(bytes, isEnough, stop, pagesOf);
    if (!readings) {
        return std::unexpected(readings.error());
    }
    addFacts(facts, *readings);
    std::optional<ReceiptFields> fields = readReceipt(facts, today);
    return fields ? std::expected<ReceiptFields, ReadError>(*std::move(fields))
                  : std::unexpected(ReadError::noReceipt);
}

} // namespace fennick::engine
