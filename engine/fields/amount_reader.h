#pragma once

#include "engine/fields/amount_scores.h"

#include <QList>

#include <optional>

namespace fennick::engine {

// The total, and how much speaks for it.
struct FoundAmount {
    double amount = 0;      // in units of the receipt's currency
    bool isCertain = false; // the readings agree and the receipt's sums come out at it
};

// The total paid: the candidate that counts most in the readings together. None when no candidate counts
// enough. Without any candidate in any reading, the largest number next to a currency sign.
[[nodiscard]] std::optional<FoundAmount> readAmount(const QList<AmountScores> &readings);

} // namespace fennick::engine
