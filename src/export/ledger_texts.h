#pragma once

#include "text/currency_text.h"

#include <QStringView>

// What the operations of the room share among themselves.
namespace fennick::ExportService {

// Stands for a value that a receipt does not have.
inline constexpr QStringView missing = u"—";

// formatAmount() with a formatter that serves a whole ledger; it must write two decimals.
QString formatAmount(std::optional<double> amount, const std::optional<QString> &currency,
                     AmountFormatter &formatter);

} // namespace fennick::ExportService
