#pragma once

#include "export/spending.h"
#include "model/receipt.h"
#include "pipeline/duplicates/archived_receipts.h"

#include <QList>

namespace fennick {

// What the receipts cost, those without an amount left out.
[[nodiscard]] QList<Expense> expensesOf(const QList<Receipt> &receipts);

// The same of archived receipts. An HTML ledger names no currency: that of its amount is found among those of
// the other receipts, and is empty if it is none of them.
[[nodiscard]] QList<Expense> expensesOf(const QList<ArchivedReceipt> &archived, const QList<Expense> &others);

} // namespace fennick
