#pragma once

#include "engine/fields/labelled_amounts.h"

#include <QList>

#include <optional>

namespace fennick::engine {

// The total, and how much speaks for it.
struct FoundAmount {
    double amount = 0;      // in units of the receipt's currency
    bool isCertain = false; // the readings agree and the receipt's sums come out at it
};

// The total paid. Every amount that a reading names a total, payment or subtotal is a candidate; the surer
// its label, the better it agrees with the receipt's other amounts and the more readings have it, the more it
// counts. None when no candidate counts enough. Without any label in any reading, the largest number next to
// a currency sign.
[[nodiscard]] std::optional<FoundAmount> readAmount(const QList<QList<LabelledAmount>> &readings);

} // namespace fennick::engine
