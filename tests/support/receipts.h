#pragma once

#include "model/receipt.h"

namespace fennick::test {

// A finished receipt with every field filled in.
inline Receipt finishedReceipt(const QString &filePath) {
    Receipt receipt = freshReceipt(filePath);
    receipt.date = QStringLiteral("2024-05-01");
    receipt.time = QStringLiteral("12:30");
    receipt.amount = 23.5;
    receipt.currency = QStringLiteral("USD");
    receipt.location = QStringLiteral("Mario's Cafe");
    receipt.category = QStringLiteral("lunch");
    receipt.summary = QStringLiteral("Lunch at Mario's Cafe for $23.50");
    receipt.status = ReceiptStatus::done;
    return receipt;
}

} // namespace fennick::test
