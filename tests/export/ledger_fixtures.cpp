#include "export/ledger_fixtures.h"

#include "support/receipts.h"
#include "support/temporary_home.h"

#include <array>

namespace fennick::test {

namespace {

Receipt plainReceipt() {
    Receipt receipt = finishedReceipt(QStringLiteral("/receipts/2024-05-01 Lunch - Mario's Cafe $23.50.pdf"));
    receipt.scannedAt = QStringLiteral("2025-03-04T17:05:09Z");
    return receipt;
}

Receipt failedReceipt() {
    Receipt receipt = freshReceipt(QStringLiteral("/receipts/Scan 7.pdf"));
    receipt.status = ReceiptStatus::error;
    receipt.error = QStringLiteral("No API key set");
    receipt.scannedAt = QStringLiteral("2025-03-04T17:05:08Z");
    return receipt;
}

Receipt receiptOfSpecialCharacters() {
    Receipt receipt = freshReceipt(QStringLiteral("/receipts/bar, & grill.jpg"));
    receipt.date = QStringLiteral("2024-05-02");
    receipt.amount = 12.5;
    receipt.currency = QStringLiteral("EUR");
    receipt.location = QStringLiteral("Bar & <b>Grill</b> \"Zur Post\"");
    receipt.category = QStringLiteral("dinner");
    receipt.summary = QStringLiteral("Soup &amp; salad, \"for two\"");
    receipt.status = ReceiptStatus::done;
    receipt.scannedAt = QStringLiteral("2025-03-04T17:05:07Z");
    return receipt;
}

Receipt processingReceipt() {
    Receipt receipt = freshReceipt(QStringLiteral("/receipts/taxi.png"));
    receipt.date = QStringLiteral("2024-05-03");
    receipt.time = QStringLiteral("08:05");
    receipt.amount = 1234.5;
    receipt.location = QStringLiteral("Taxi");
    receipt.category = QStringLiteral("transport");
    receipt.summary = QStringLiteral("First line\nsecond line");
    receipt.scannedAt = QStringLiteral("2025-03-04T17:05:06Z");
    return receipt;
}

Receipt yenReceipt() {
    Receipt receipt = freshReceipt(QStringLiteral("/receipts/寿司.heic"));
    receipt.date = QStringLiteral("2024-05-04");
    receipt.time = QStringLiteral("23:59");
    receipt.amount = 5000;
    receipt.currency = QStringLiteral("JPY");
    receipt.location = QStringLiteral("寿司屋");
    receipt.category = QStringLiteral("dinner");
    receipt.summary = QStringLiteral("   ");
    receipt.status = ReceiptStatus::done;
    receipt.scannedAt = QStringLiteral("2025-03-04T17:05:05Z");
    return receipt;
}

} // namespace

QList<Receipt> batch() {
    return {plainReceipt(), failedReceipt(), receiptOfSpecialCharacters(), processingReceipt(), yenReceipt()};
}

QList<Receipt> manyReceipts(int count) {
    const std::array currencies = {QStringLiteral("USD"), QStringLiteral("EUR"), QStringLiteral("JPY"),
                                   QStringLiteral("CHF")};
    QList<Receipt> receipts;
    receipts.reserve(count);
    for (int number = 0; number < count; ++number) {
        Receipt receipt = finishedReceipt(QStringLiteral("/receipts/Lunch %1.pdf").arg(number));
        receipt.amount = 0.25 * (number % 400);
        receipt.currency = currencies[static_cast<size_t>(number) % currencies.size()];
        receipt.summary = QStringLiteral("Lunch number %1, \"with\" colleagues & guests").arg(number);
        receipts.append(receipt);
    }
    return receipts;
}

QByteArray expectedFile(const QString &name) {
    return readFile(QStringLiteral(FENNICK_SOURCE_DIR "/tests/data/") + name);
}

} // namespace fennick::test
