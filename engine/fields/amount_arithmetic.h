#pragma once

#include "engine/fields/labelled_amounts.h"

#include <QList>

namespace fennick::engine {

// How well `thousandths` agrees, as the total, with the other amounts of the same reading: 0 = no sum comes
// out at it. Cash less change and what a deposit leaves count most; subtotal with tax, charges and rounding,
// the table of taxes, a card payment, and the sum of the items follow.
double arithmeticSupport(qint64 thousandths, const QList<LabelledAmount> &amounts);

// The totals that these amounts come to, printed or not: cash less change, and each subtotal with its tax,
// charges, discount and rounding.
QList<qint64> derivedTotals(const QList<LabelledAmount> &amounts);

// Whether `thousandths` is what one of the totals or subtotals comes to after a rounding that is printed.
bool isRoundedResult(qint64 thousandths, const QList<LabelledAmount> &amounts);

} // namespace fennick::engine
