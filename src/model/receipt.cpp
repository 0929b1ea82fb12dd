#include "model/receipt.h"

#include "text/characters.h"
#include "text/path_text.h"

#include <QDateTime>
#include <QHashFunctions>
#include <QUuid>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

bool sameText(const std::optional<QString> &left, const std::optional<QString> &right) {
    if (!left || !right) {
        return left.has_value() == right.has_value();
    }
    return canonicallyEqual(*left, *right);
}

} // namespace

QString rawValue(ReceiptStatus status) {
    switch (status) {
    case ReceiptStatus::processing:
        return u"processing"_s;
    case ReceiptStatus::done:
        return u"done"_s;
    case ReceiptStatus::error:
        return u"error"_s;
    }
    Q_UNREACHABLE();
}

std::optional<ReceiptStatus> receiptStatusFromRawValue(const QString &text) {
    for (const auto status : {ReceiptStatus::processing, ReceiptStatus::done, ReceiptStatus::error}) {
        if (text == rawValue(status)) {
            return status;
        }
    }
    return std::nullopt;
}

size_t qHash(ReceiptStatus status, size_t seed) {
    return ::qHash(rawValue(status), seed);
}

bool Receipt::operator==(const Receipt &other) const {
    return canonicallyEqual(id, other.id) && canonicallyEqual(fileName, other.fileName) &&
           canonicallyEqual(filePath, other.filePath) && sameText(date, other.date) &&
           sameText(time, other.time) && amount == other.amount && sameText(currency, other.currency) &&
           sameText(location, other.location) && canonicallyEqual(category, other.category) &&
           canonicallyEqual(summary, other.summary) && canonicallyEqual(scannedAt, other.scannedAt) &&
           status == other.status && sameText(error, other.error) && addedToPhotos == other.addedToPhotos;
}

Receipt freshReceipt(const QString &filePath) {
    Receipt receipt;
    receipt.id = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    receipt.fileName = lastPathComponent(filePath);
    receipt.filePath = filePath;
    receipt.scannedAt = QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
    return receipt;
}

} // namespace fennick
