#pragma once

#include "model/receipt.h"

#include <QByteArray>
#include <QList>
#include <QSet>

#include <expected>

// The stored form of receipts: a JSON array with one object per receipt. Absent optional fields are omitted,
// never written as null; slashes are escaped. Pure functions, callable from any thread.
namespace fennick {

struct DecodingError {
    enum class Kind {
        malformed,     // no JSON array of objects
        keyNotFound,   // a required key is missing
        typeMismatch,  // a value of the wrong JSON type
        dataCorrupted, // a status text that names no status
    };
    Kind kind;
    QString key; // the key the error was found at; empty for `malformed`
};

// The receipts as a pretty-printed array, in the given order. An amount that JSON cannot express (infinite
// or not a number) is omitted, so that one bad value never prevents the list from being saved.
QByteArray encodeReceipts(const QList<Receipt> &receipts);

// The same in two steps, for callers that keep the records of unchanged receipts: the record of one receipt,
// and the array of all records.
QByteArray encodeReceipt(const Receipt &receipt);
QByteArray joinReceipts(const QList<QByteArray> &records);

// All receipts, or the first error: one bad record fails the whole array. Keys may come in any order,
// unknown keys are ignored, and the last of repeated keys counts. A byte-order mark is accepted.
[[nodiscard]] std::expected<QList<Receipt>, DecodingError> decodeReceipts(const QByteArray &json);

// A compact array of strings in no defined order.
QByteArray encodePaths(const QSet<QString> &paths);
[[nodiscard]] std::expected<QSet<QString>, DecodingError> decodePaths(const QByteArray &json);

} // namespace fennick
