#pragma once

#include "bench/truth_table.h"
#include "customs.h"
#include "receipt_sheet.h"
#include "seeded_random.h"

namespace fennick {

struct MadeReceipt {
    ReceiptSheet sheet;
    Truth truth; // without a file
};

// One receipt of the country, as `random` will have it.
[[nodiscard]] MadeReceipt madeReceipt(const Customs &customs, SeededRandom &random);

} // namespace fennick
