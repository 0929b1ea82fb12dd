#include "text/currency_text.h"

#include "text/number_text.h"

#include <QLocale>

#include <unicode/numfmt.h>

#include <algorithm>

namespace fennick {

namespace {

// More than the currencies of the world. Whatever the codes of a list are, the kept formatters stay few.
constexpr size_t mostFormats = 256;

// The C locale has no way of writing money; its users read English.
icu::Locale userLocale() {
    const QLocale locale;
    return locale.language() == QLocale::C ? icu::Locale::getUS()
                                           : icu::Locale(locale.name().toLatin1().constData());
}

// ICU itself looks at the first three characters only: "Dollar" would be shown as the currency DOL.
bool isCurrencyCode(const QString &text) {
    return text.size() == 3 && std::ranges::all_of(text, [](QChar character) {
               return character.unicode() < 0x80 && character.isLetter();
           });
}

// Null when the locale data has no answer.
std::unique_ptr<icu::NumberFormat> currencyFormat(const QString &code, FractionDigits digits) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createCurrencyInstance(userLocale(), status));
    if (U_FAILURE(status)) {
        return nullptr;
    }
    format->setCurrency(code.toStdU16String().c_str(), status);
    if (U_FAILURE(status)) {
        return nullptr;
    }
    if (digits == FractionDigits::two) {
        format->setMinimumFractionDigits(2);
        format->setMaximumFractionDigits(2);
    }
    return format;
}

} // namespace

// Keeps ICU's headers out of ours.
class AmountFormatter::CurrencyFormat {
public:
    explicit CurrencyFormat(std::unique_ptr<icu::NumberFormat> format)
        : format_(std::move(format)) {}

    // Empty when there is no answer.
    QString text(double amount) const {
        icu::UnicodeString text;
        if (format_) {
            format_->format(amount, text);
        }
        return QString::fromUtf16(text.getBuffer(), text.length());
    }

private:
    std::unique_ptr<icu::NumberFormat> format_;
};

AmountFormatter::AmountFormatter(FractionDigits digits)
    : digits_(digits) {}

AmountFormatter::~AmountFormatter() = default;

QString AmountFormatter::text(double amount, const std::optional<QString> &currencyCode) {
    if (!currencyCode || !isCurrencyCode(*currencyCode)) {
        return twoDecimals(amount);
    }
    const QString text = formatOf(*currencyCode).text(amount);
    return text.isEmpty() ? twoDecimals(amount) : text;
}

const AmountFormatter::CurrencyFormat &AmountFormatter::formatOf(const QString &currencyCode) {
    const auto known = formats_.find(currencyCode);
    if (known != formats_.end()) {
        return *known->second;
    }
    if (formats_.size() == mostFormats) {
        formats_.clear();
    }
    auto format = std::make_unique<CurrencyFormat>(currencyFormat(currencyCode, digits_));
    return *formats_.emplace(currencyCode, std::move(format)).first->second;
}

} // namespace fennick
