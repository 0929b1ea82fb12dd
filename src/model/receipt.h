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

// The status with exactly this raw value, compared case-sensitively; absent for any other text.
[[nodiscard]] std::optional<ReceiptStatus> receiptStatusFromRawValue(const QString &rawValue);

size_t qHash(ReceiptStatus status, size_t seed = 0);

// A receipt file and what is known about it. A plain value: modify a copy and pass it to
// ReceiptStore::update. Moments and identifiers are stored as text, so that the stored list needs no date
// encoding.
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

// A receipt for a newly found file: a new identifier, the current time, status `processing`.
Receipt freshReceipt(const QString &filePath);

} // namespace fennick
