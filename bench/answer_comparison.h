#pragma once

#include "engine/fields/receipt_fields.h"
#include "truth_table.h"

#include <QString>

namespace fennick {

// How an answer's field stands to the truth.
enum class Verdict {
    Right,
    Wrong,
    Absent,
};

Verdict dateVerdict(const engine::ReceiptFields &fields, const Truth &truth);
Verdict totalVerdict(const engine::ReceiptFields &fields, const Truth &truth);
Verdict merchantVerdict(const engine::ReceiptFields &fields, const Truth &truth);

// 1 - edit distance / length of the longer one, of both texts in one case with runs of anything but letters
// and digits taken for one space. 1 = the same, 0 = nothing in common.
double merchantSimilarity(const QString &left, const QString &right);

} // namespace fennick
