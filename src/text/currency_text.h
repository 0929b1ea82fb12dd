#pragma once

#include <QString>

#include <optional>

namespace fennick {

// The amount as the user's locale writes it in the currency with this ISO 4217 code; without a code, or when
// the locale data has no answer, two decimals and no currency.
QString amountText(double amount, const std::optional<QString> &currencyCode);

} // namespace fennick
