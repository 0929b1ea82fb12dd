#pragma once

#include <QRegularExpression>

namespace fennick::engine {

// Matches `thousandths` (not negative) in every form in which a receipt may print it: 1284.17, 1,284.17,
// 1.284,17, 1 284,17, 1'284.17, 12,34,567.00, 1284,- and 1284 for a whole amount, 12.5 and 12.500 for 12.50.
// A whole amount of fewer than three digits must have noughts or a dash behind it: such numbers count things.
[[nodiscard]] QRegularExpression amountPattern(qint64 thousandths);

} // namespace fennick::engine
