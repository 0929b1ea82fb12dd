#pragma once

#include "engine/fields/amount_roles.h"
#include "engine/knowledge/currency_table.h"
#include "engine/recognition/text_line.h"

#include <QList>

namespace fennick::engine {

// What the rows of a receipt's table of taxes come to, in thousandths of the currency's unit: net amount and
// tax of each row together, and of all rows. A row is two prices of which one is the tax on the other at a
// rate that the receipt prints ("6 %  56.60  3.40"), so that it proves itself: two misread prices hardly ever
// fit. A row whose rate was not read may be at one of the country's `usualRates`, in per cent.
[[nodiscard]] QList<qint64> taxTableTotals(const Reading &reading, const AmountRoles &roles,
                                           const PriceStyle &style, const QList<double> &usualRates);

} // namespace fennick::engine
