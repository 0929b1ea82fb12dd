#pragma once

#include "model/receipt.h"

#include <QList>
#include <QString>

namespace fennick {

struct CategoryTotal {
    QString category;
    double amount = 0;
};

// What was spent in one currency, and on what.
struct CurrencyTotal {
    QString currency; // empty for amounts without one
    double amount = 0;
    QList<CategoryTotal> categories; // by name
};

// The receipts' amounts, each currency by itself: amounts of different currencies are never added. Currencies
// are in the order of their codes, amounts without a currency last. Receipts without an amount do not count.
[[nodiscard]] QList<CurrencyTotal> totalsByCurrency(const QList<Receipt> &receipts);

} // namespace fennick
