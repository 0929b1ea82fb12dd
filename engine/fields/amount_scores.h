#pragma once

#include "engine/fields/labelled_amounts.h"

#include <QList>
#include <QMap>

namespace fennick::engine {

// What one reading says of the total.
struct AmountScores {
    QMap<qint64, double> candidates; // in thousandths, with how much speaks for each
    qint64 largestWithCurrency = 0;  // in thousandths, of what has no label; 0 = none
};

// Every amount that the reading names a total, payment or subtotal is a candidate, and every sum that its
// amounts come to; the surer the label and the better the agreement with the other amounts, the more it
// counts.
[[nodiscard]] AmountScores amountScores(const QList<LabelledAmount> &amounts);

} // namespace fennick::engine
