#include "export/ledger_fixtures.h"

#include "support/receipts.h"
#include "support/temporary_home.h"

#include <array>

using namespace Qt::StringLiterals;

namespace fennick::test {

namespace {

Receipt plainReceipt() {
    Receipt receipt = finishedReceipt(u"/receipts/2024-05-01 Lunch - Mario's Cafe $23.50.pdf"_s);
    receipt.scannedAt = u"2025-03-04T17:05:09Z"_s;
    return receipt;
}

Receipt failedReceipt() {
    Receipt receipt = freshReceipt(u"/receipts/Scan 7.pdf"_s);
    receipt.status = ReceiptStatus::error;
    receipt.error = u"No API key set"_s;
    receipt.scannedAt = u"2025-03-04T17:05:08Z"_s;
    return receipt;
}

Receipt receiptOfSpecialCharacters() {
    Receipt receipt = freshReceipt(u"/receipts/bar, & grill.jpg"_s);
    receipt.date = u"2024-05-02"_s;
    receipt.amount = 12.5;
    receipt.currency = u"EUR"_s;
    receipt.location = u"Bar & <b>Grill</b> \"Zur Post\""_s;
    receipt.category = u"dinner"_s;
    receipt.summary = u"Soup &amp; salad, \"for two\""_s;
    receipt.status = ReceiptStatus::done;
    receipt.scannedAt = u"2025-03-04T17:05:07Z"_s;
    return receipt;
}

Receipt processingReceipt() {
    Receipt receipt = freshReceipt(u"/receipts/taxi.png"_s);
    receipt.date = u"2024-05-03"_s;
    receipt.time = u"08:05"_s;
    receipt.amount = 1234.5;
    receipt.location = u"Taxi"_s;
    receipt.category = u"transport"_s;
    receipt.summary = u"First line\nsecond line"_s;
    receipt.scannedAt = u"2025-03-04T17:05:06Z"_s;
    return receipt;
}

Receipt yenReceipt() {
    Receipt receipt = freshReceipt(u"/receipts/寿司.heic"_s);
    receipt.date = u"2024-05-04"_s;
    receipt.time = u"23:59"_s;
    receipt.amount = 5000;
    receipt.currency = u"JPY"_s;
    receipt.location = u"寿司屋"_s;
    receipt.category = u"dinner"_s;
    receipt.summary = u"   "_s;
    receipt.status = ReceiptStatus::done;
    receipt.scannedAt = u"2025-03-04T17:05:05Z"_s;
    return receipt;
}

} // namespace

QList<Receipt> batch() {
    return {plainReceipt(), failedReceipt(), receiptOfSpecialCharacters(), processingReceipt(), yenReceipt()};
}

QList<Receipt> manyReceipts(int count) {
    const std::array currencies = {u"USD"_s, u"EUR"_s, u"JPY"_s, u"CHF"_s};
    QList<Receipt> receipts;
    receipts.reserve(count);
    for (int number = 0; number < count; ++number) {
        Receipt receipt = finishedReceipt(u"/receipts/Lunch %1.pdf"_s.arg(number));
        receipt.amount = 0.25 * (number % 400);
        receipt.currency = currencies[static_cast<size_t>(number) % currencies.size()];
        receipt.summary = u"Lunch number %1, \"with\" colleagues & guests"_s.arg(number);
        receipts.append(receipt);
    }
    return receipts;
}

QByteArray expectedFile(const QString &name) {
    return readFile(QString::fromUtf8(FENNICK_SOURCE_DIR "/tests/data/") + name);
}

} // namespace fennick::test
