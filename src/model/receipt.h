#pragma once

#include <QString>

#include <optional>

namespace fennick {

using Qt::StringLiterals::operator""_s;

enum class ReceiptStatus {
    processing, // taken in, waiting for or undergoing extraction
    done,       // extraction succeeded and the fields are filled in
    error,      // extraction failed; the receipt's `error` holds the text
};

// "processing", "done" or "error".
QString rawValue(ReceiptStatus status);

// The status with exactly this raw value; nothing for any other text, also when only the case differs.
[[nodiscard]] std::optional<ReceiptStatus> receiptStatusFromRawValue(const QString &rawValue);

size_t qHash(ReceiptStatus status, size_t seed = 0);

// One receipt file that the pipeline has seen. A plain value: copied, never shared, and changed by handing a
// whole modified copy to ReceiptStore::update. Moments and identifiers are kept as text, formed once, so that
// the stored list needs no date encoding.
struct Receipt {
    QString id;                  // upper-case UUID, fixed at creation
    QString fileName;            // last path component
    QString filePath;            // absolute path, compared exactly
    std::optional<QString> date; // as normalised by extraction
    std::optional<QString> time;
    std::optional<double> amount;
    std::optional<QString> currency;
    std::optional<QString> location;
    QString category = u"misc"_s;
    QString summary;
    QString scannedAt; // moment of intake, ISO 8601 UTC, whole seconds, trailing "Z"
    ReceiptStatus status = ReceiptStatus::processing;
    std::optional<QString> error; // text for the user while `status` is error
    bool addedToPhotos = false;

    // Field by field; texts are equal when canonically equivalent.
    bool operator==(const Receipt &other) const;
};

// The receipt of a file that has just been taken in: a new identifier, the present moment, processing.
Receipt freshReceipt(const QString &filePath);

} // namespace fennick
