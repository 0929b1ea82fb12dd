#pragma once

#include <QString>

#include <map>
#include <memory>
#include <optional>

namespace fennick {

enum class FractionDigits {
    ofCurrency, // as many as the currency is written with: none for the yen
    two,        // two for every currency
};

// Formats amounts in the user's locale. Keeps a formatter per currency, because creating one takes eighty
// times as long as using it: use one AmountFormatter for a whole list. Not thread-safe.
class AmountFormatter {
public:
    explicit AmountFormatter(FractionDigits digits);
    ~AmountFormatter();

    // The amount in the currency with this ISO 4217 code. Without a code, with one that is not three ASCII
    // letters, or if the locale data cannot format it: two decimals and no currency.
    QString text(double amount, const std::optional<QString> &currencyCode);

private:
    class CurrencyFormat;

    const CurrencyFormat &formatOf(const QString &currencyCode);

    FractionDigits digits_;
    std::map<QString, std::unique_ptr<CurrencyFormat>> formats_;
};

} // namespace fennick
