#pragma once

#include "model/receipt.h"

#include <QByteArray>
#include <QList>
#include <QSet>

#include <expected>

// The stored form of receipts: a JSON array with one object per receipt. Optional fields that are absent are
// left out, never written as null; slashes are escaped. Pure functions, callable from any thread.
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

// The receipts as a pretty-printed array in the order given. An amount that JSON cannot express (infinite or
// not a number) is left out like an absent one, so that one bad value never keeps a list from being saved.
QByteArray encodeReceipts(const QList<Receipt> &receipts);

// The same in two steps, for who keeps the records of receipts that have not changed: one receipt's record,
// and the array of all records.
QByteArray encodeReceipt(const Receipt &receipt);
QByteArray joinReceipts(const QList<QByteArray> &records);

// All receipts, or the first error: one bad record fails the whole array. Keys may come in any order, unknown
// ones are ignored, and of a repeated key the last counts. A byte-order mark is accepted.
[[nodiscard]] std::expected<QList<Receipt>, DecodingError> decodeReceipts(const QByteArray &json);

// A compact array of strings in no defined order.
QByteArray encodePaths(const QSet<QString> &paths);
[[nodiscard]] std::expected<QSet<QString>, DecodingError> decodePaths(const QByteArray &json);

} // namespace fennick
