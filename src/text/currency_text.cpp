#include "text/currency_text.h"

#include "text/number_text.h"

#include <QLocale>

#include <unicode/numfmt.h>

#include <memory>

namespace fennick {

namespace {

// The C locale has no way of writing money; its users read English.
icu::Locale userLocale() {
    const QLocale locale;
    return locale.language() == QLocale::C ? icu::Locale::getUS()
                                           : icu::Locale(locale.name().toLatin1().constData());
}

} // namespace

QString amountText(double amount, const std::optional<QString> &currencyCode) {
    if (!currencyCode) {
        return twoDecimals(amount);
    }
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createCurrencyInstance(userLocale(), status));
    if (U_FAILURE(status)) {
        return twoDecimals(amount);
    }
    format->setCurrency(currencyCode->toStdU16String().c_str(), status);
    icu::UnicodeString text;
    format->format(amount, text);
    if (U_FAILURE(status) || text.isEmpty()) {
        return twoDecimals(amount);
    }
    return QString::fromUtf16(text.getBuffer(), text.length());
}

} // namespace fennick
