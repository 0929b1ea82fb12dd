#include "export/ledger_texts.h"

#include "export/export_service.h"
#include "text/number_text.h"

#include <QDateTime>

#include <unicode/datefmt.h>
#include <unicode/simpletz.h>

#include <memory>

namespace fennick::ExportService {

QString trimNumber(double value) {
    return twoDecimals(value);
}

QString formatAmount(std::optional<double> amount, const std::optional<QString> &currency,
                     AmountFormatter &formatter) {
    return amount ? formatter.text(*amount, currency) : missing.toString();
}

QString formatAmount(std::optional<double> amount, const std::optional<QString> &currency) {
    AmountFormatter formatter(FractionDigits::two);
    return formatAmount(amount, currency, formatter);
}

QString longDateTime() {
    const QDateTime now = QDateTime::currentDateTime();
    const std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createDateTimeInstance(
        icu::DateFormat::kLong, icu::DateFormat::kShort, icu::Locale::getUS()));
    if (!format) {
        return now.toString(Qt::ISODate); // ICU without its data
    }
    // The text names no zone, so the zone's present offset is all that matters. Asking Qt for it keeps this
    // and the date stamp on the same side of midnight.
    format->adoptTimeZone(new icu::SimpleTimeZone(now.offsetFromUtc() * 1000, icu::UnicodeString()));
    icu::UnicodeString text;
    format->format(static_cast<UDate>(now.toMSecsSinceEpoch()), text);
    return QString::fromUtf16(text.getBuffer(), text.length());
}

QString isoDateStamp() {
    return QDate::currentDate().toString(Qt::ISODate);
}

} // namespace fennick::ExportService
