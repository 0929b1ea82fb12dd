#include "made_up_receipt.h"

#include <QStringList>

#include <string>

using namespace Qt::StringLiterals;

namespace fennick::fuzz {

namespace {

constexpr size_t longestText = 600;

std::optional<QString> consumeOptionalText(FuzzedDataProvider &input) {
    return input.ConsumeBool() ? std::optional(consumeText(input)) : std::nullopt;
}

std::optional<double> consumeAmount(FuzzedDataProvider &input) {
    return input.ConsumeBool() ? std::optional(input.ConsumeFloatingPoint<double>()) : std::nullopt;
}

// What the extraction lets through, or anything.
std::optional<QString> consumeCurrency(FuzzedDataProvider &input) {
    static const QStringList codes{u"USD"_s, u"EUR"_s, u"JPY"_s, u"KWD"_s, u"XXX"_s};
    return input.ConsumeBool()
               ? std::optional(codes[input.ConsumeIntegralInRange<qsizetype>(0, codes.size() - 1)])
               : consumeOptionalText(input);
}

} // namespace

QString consumeText(FuzzedDataProvider &input) {
    const bool isUtf8 = input.ConsumeBool();
    const std::string bytes = input.ConsumeRandomLengthString(longestText);
    if (isUtf8) {
        return QString::fromStdString(bytes);
    }
    QString text;
    for (size_t index = 0; index + 1 < bytes.size(); index += 2) {
        const auto low = static_cast<unsigned char>(bytes[index]);
        const auto high = static_cast<unsigned char>(bytes[index + 1]);
        text.append(QChar(static_cast<char16_t>(low | (high << 8))));
    }
    return text;
}

Receipt consumeReceipt(FuzzedDataProvider &input) {
    Receipt receipt;
    receipt.id = consumeText(input);
    receipt.fileName = consumeText(input);
    receipt.filePath = consumeText(input);
    receipt.date = consumeOptionalText(input);
    receipt.time = consumeOptionalText(input);
    receipt.amount = consumeAmount(input);
    receipt.currency = consumeCurrency(input);
    receipt.location = consumeOptionalText(input);
    receipt.category = consumeText(input);
    receipt.summary = consumeText(input);
    receipt.scannedAt = consumeText(input);
    receipt.status =
        input.PickValueInArray({ReceiptStatus::processing, ReceiptStatus::done, ReceiptStatus::error});
    receipt.error = consumeOptionalText(input);
    receipt.addedToPhotos = input.ConsumeBool();
    return receipt;
}

} // namespace fennick::fuzz
