#include "engine/fields/receipt_fields.h"

#include "engine/fields/amount_reader.h"
#include "engine/fields/brand_reader.h"
#include "engine/fields/category_reader.h"
#include "engine/fields/company_names.h"
#include "engine/fields/currency_reader.h"
#include "engine/fields/date_reader.h"
#include "engine/fields/merchant_reader.h"
#include "engine/fields/summary_writer.h"
#include "engine/fields/time_reader.h"
#include "engine/knowledge/words.h"

#include <QMap>

#include <numeric>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

DayMonthOrder orderFor(const std::optional<QString> &currency) {
    const bool northAmerican = currency == u"USD"_s || currency == u"CAD"_s;
    return northAmerican ? DayMonthOrder::MonthFirst : DayMonthOrder::DayFirst;
}

// The currency that most readings speak of, if a good part of them do: a single one may have taken any stroke
// for a dollar.
std::optional<QString> votedCurrency(const QList<Reading> &readings) {
    constexpr int leastShare = 4; // one in so many readings
    QMap<QString, int> votes;
    std::optional<QString> best;
    for (const Reading &reading : readings) {
        if (const std::optional<QString> code = readCurrency(reading)) {
            ++votes[*code];
            best = !best || votes[*code] > votes[*best] ? code : best;
        }
    }
    return best && leastShare * votes[*best] >= readings.size() ? best : std::nullopt;
}

std::optional<FoundDate> foundDate(const QList<Reading> &readings, const std::optional<QString> &currency,
                                   QDate today) {
    return readDate(readings, printedOrder(readings, orderFor(currency)), today);
}

// The time that most readings have; of equals, the one of the earliest.
std::optional<QTime> votedTime(const QList<Reading> &readings, const std::optional<FoundDate> &date) {
    QMap<QTime, int> votes;
    std::optional<QTime> best;
    for (qsizetype index = 0; index < readings.size(); ++index) {
        const std::optional<QTime> time =
            readTime(readings[index], date ? date->lines.value(index) : std::nullopt);
        if (time) {
            ++votes[*time];
        }
        if (time && (!best || votes[*time] > votes[*best])) {
            best = time;
        }
    }
    return best;
}

// A company's full name or one that holds the brand says more than the brand; any other line may be a slogan
// or an address.
std::optional<QString> sellerOf(const std::optional<QString> &merchant,
                                const std::optional<FoundBrand> &brand) {
    if (!merchant || !brand) {
        return merchant ? merchant : (brand ? std::optional(brand->name) : std::nullopt);
    }
    const bool holdsBrand =
        containsPhrase(withoutAccents(wordsOf(*merchant)), withoutAccents(wordsOf(brand->name)).trimmed());
    return holdsBrand || hasLegalForm(*merchant) ? *merchant : brand->name;
}

ReceiptFields noReceipt() {
    ReceiptFields fields;
    fields.category = u"misc"_s;
    fields.summary = u"No receipt text was found in this document"_s;
    return fields;
}

} // namespace

ReceiptFields readReceipt(const QList<Reading> &readings, QDate today) {
    const Reading allLines = std::accumulate(readings.cbegin(), readings.cend(), Reading());
    ReceiptFields fields;
    fields.currency = votedCurrency(readings);
    const std::optional<FoundAmount> amount = readAmount(readings);
    const std::optional<FoundDate> date = foundDate(readings, fields.currency, today);
    if (!date && !amount) {
        return noReceipt();
    }

    if (amount) {
        fields.amount = amount->amount;
    }
    if (date) {
        fields.date = date->date;
    }
    fields.time = votedTime(readings, date);
    const std::optional<FoundBrand> brand = readBrand(readings);
    fields.location = sellerOf(readMerchant(readings), brand);
    fields.category =
        readCategory(allLines, fields.location, fields.time, brand ? brand->categories : QStringList());
    fields.summary = summaryOf(fields);
    return fields;
}

bool isBeyondDoubt(const QList<Reading> &readings, QDate today) {
    const std::optional<FoundAmount> amount = readAmount(readings);
    if (!amount || !amount->isCertain) {
        return false;
    }
    const std::optional<FoundDate> date = foundDate(readings, votedCurrency(readings), today);
    return date && date->isCertain;
}

} // namespace fennick::engine
