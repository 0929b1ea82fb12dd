#include "text/currency_codes.h"

#include <QSet>

#include <unicode/ucurr.h>
#include <unicode/uenum.h>

#include <memory>
#include <string>

namespace fennick {

namespace {

QStringList codesOfKinds(uint32_t kinds) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UEnumeration, decltype(&uenum_close)> codes(ucurr_openISOCurrencies(kinds, &status),
                                                                      &uenum_close);
    QStringList found;
    while (U_SUCCESS(status)) {
        int32_t length = 0;
        const char *const code = uenum_next(codes.get(), &length, &status);
        if (code == nullptr) {
            break;
        }
        found.append(QString::fromLatin1(code, length));
    }
    found.sort();
    return found;
}

} // namespace

QStringList currencyCodesInUse() {
    return codesOfKinds(UCURR_COMMON | UCURR_NON_DEPRECATED);
}

bool isIsoCurrency(const QString &code) {
    static const QStringList all = codesOfKinds(UCURR_ALL);
    static const QSet<QString> known(all.cbegin(), all.cend());
    return known.contains(code);
}

QString currencyName(const QString &code, const QLocale &locale) {
    // For a currency without a name ICU returns the code that it was given, not a copy.
    const std::u16string given = code.toStdU16String();
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const char16_t *const name = ucurr_getName(given.c_str(), locale.name().toLatin1().constData(),
                                               UCURR_LONG_NAME, nullptr, &length, &status);
    return U_SUCCESS(status) && name != nullptr ? QString::fromUtf16(name, length) : code;
}

int currencyDecimals(const QString &code) {
    constexpr int usual = 2;
    if (!isIsoCurrency(code)) {
        return usual;
    }
    UErrorCode status = U_ZERO_ERROR;
    const int32_t decimals = ucurr_getDefaultFractionDigits(code.toStdU16String().c_str(), &status);
    return U_SUCCESS(status) ? decimals : usual;
}

} // namespace fennick
