#pragma once

#include "engine/fields/receipt_fields.h"
#include "truth_table.h"

#include <QString>

namespace fennick {

// How an answer's field compares with the truth.
enum class Verdict {
    right,
    wrong,
    absent,  // the answer leaves it open
    unknown, // the truth is not stated
};

[[nodiscard]] Verdict dateVerdict(const engine::ReceiptFields &fields, const Truth &truth);
[[nodiscard]] Verdict totalVerdict(const engine::ReceiptFields &fields, const Truth &truth);
[[nodiscard]] Verdict currencyVerdict(const engine::ReceiptFields &fields, const Truth &truth);
[[nodiscard]] Verdict merchantVerdict(const engine::ReceiptFields &fields, const Truth &truth);
[[nodiscard]] Verdict categoryVerdict(const engine::ReceiptFields &fields, const Truth &truth);

} // namespace fennick
