#pragma once

#include "model/receipt.h"

namespace fennick::test {

using namespace Qt::StringLiterals;

// A finished receipt with every field filled in.
inline Receipt finishedReceipt(const QString &filePath) {
    Receipt receipt = freshReceipt(filePath);
    receipt.date = u"2024-05-01"_s;
    receipt.time = u"12:30"_s;
    receipt.amount = 23.5;
    receipt.currency = u"USD"_s;
    receipt.location = u"Mario's Cafe"_s;
    receipt.category = u"lunch"_s;
    receipt.summary = u"Lunch at Mario's Cafe for $23.50"_s;
    receipt.status = ReceiptStatus::done;
    receipt.scannedAt = u"2024-05-01T12:31:00Z"_s; // the same for all: none is newer than another
    return receipt;
}

} // namespace fennick::test
