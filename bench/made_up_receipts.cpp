#include "made_up_receipts.h"

#include <array>

namespace fennick {

using namespace Qt::StringLiterals;

QList<Receipt> madeUpReceipts(qsizetype count) {
    const std::array locations{u"Mario's Cafe"_s, u"Gasthaus \"Zur Post\""_s, u"Bäckerei Müller & Söhne"_s,
                               u"寿司屋"_s};
    const std::array currencies{u"USD"_s, u"EUR"_s, u"JPY"_s};
    const std::array categories{u"lunch"_s, u"travel"_s, u"groceries"_s, u"misc"_s};
    const auto pick = [](const auto &values, qsizetype index) {
        return values[static_cast<std::size_t>(index) % values.size()];
    };
    QList<Receipt> receipts;
    receipts.reserve(count);
    for (qsizetype index = 0; index < count; ++index) {
        Receipt receipt = freshReceipt(u"/home/user/Receipts/2024-05-01 Lunch - scan %1.pdf"_s.arg(index));
        receipt.date = u"2024-%1-%2"_s.arg(index % 12 + 1, 2, 10, QLatin1Char('0'))
                           .arg(index % 28 + 1, 2, 10, QLatin1Char('0'));
        receipt.time = u"12:%1"_s.arg(index % 60, 2, 10, QLatin1Char('0'));
        receipt.amount = static_cast<double>(index % 100000) / 100;
        receipt.currency = pick(currencies, index);
        receipt.location = pick(locations, index);
        receipt.category = pick(categories, index);
        receipt.summary = u"Soup, salad and a glass of water for table %1"_s.arg(index % 40);
        receipt.status = ReceiptStatus::done;
        receipt.addedToPhotos = index % 2 == 0;
        receipts.append(receipt);
    }
    return receipts;
}

} // namespace fennick
