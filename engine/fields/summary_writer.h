#pragma once

#include "engine/fields/receipt_fields.h"

#include <QString>

namespace fennick::engine {

// One short English sentence that tells the receipt apart at a glance, such as "Lunch at Mario's Cafe for
// $23.50", from whatever of `fields` is known (their own summary is not looked at).
QString summaryOf(const ReceiptFields &fields);

} // namespace fennick::engine
