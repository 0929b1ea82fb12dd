#include "engine/receipt_fields.h"

#include "engine/amount_reader.h"
#include "engine/category_reader.h"
#include "engine/currency_reader.h"
#include "engine/date_reader.h"
#include "engine/merchant_reader.h"
#include "engine/summary_writer.h"
#include "engine/time_reader.h"

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

DayMonthOrder orderFor(const std::optional<QString> &currency) {
    const bool northAmerican = currency == u"USD"_s || currency == u"CAD"_s;
    return northAmerican ? DayMonthOrder::MonthFirst : DayMonthOrder::DayFirst;
}

ReceiptFields noReceipt() {
    ReceiptFields fields;
    fields.category = u"misc"_s;
    fields.summary = u"No receipt text was found in this document"_s;
    return fields;
}

} // namespace

ReceiptFields readReceipt(const QList<TextLine> &lines, QDate today) {
    ReceiptFields fields;
    fields.currency = readCurrency(lines);
    fields.amount = readAmount(lines);
    const std::optional<FoundDate> date = readDate(lines, orderFor(fields.currency), today);
    if (!date && !fields.amount) {
        return noReceipt();
    }

    if (date) {
        fields.date = date->date;
    }
    fields.time = readTime(lines, date ? std::optional(date->line) : std::nullopt);
    fields.location = readMerchant(lines);
    fields.category = readCategory(lines, fields.location, fields.time);
    fields.summary = summaryOf(fields);
    return fields;
}

} // namespace fennick
