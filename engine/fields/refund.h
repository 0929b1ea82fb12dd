#pragma once

#include "engine/fields/amount_roles.h"
#include "engine/recognition/text_line.h"

namespace fennick::engine {

// Whether `reading` is of money given back: each of its totals has a minus.
[[nodiscard]] bool isRefund(const Reading &reading, const AmountRoles &roles);

// `reading` with its amounts as if they had been paid.
[[nodiscard]] Reading withoutMinuses(Reading reading);

} // namespace fennick::engine
