#pragma once

#include "engine/fields/merchant_lines.h"
#include "engine/recognition/text_line.h"

#include <QList>
#include <QString>

#include <optional>

namespace fennick::engine {

// The seller's name as printed, without what tills put around it ("*** Corner Shop ***"). It stands at the
// top and is no heading ("Invoice"), address, number or greeting; a legal form (Ltd, Sdn Bhd), the
// registration number that belongs to it and large print speak for a line. The readings vote; a name in large
// print may run over several lines.
[[nodiscard]] std::optional<QString> readMerchant(const QList<Reading> &readings, const MerchantLines &lines);

} // namespace fennick::engine
