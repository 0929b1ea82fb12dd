#pragma once

#include "engine/text_line.h"

#include <QList>

#include <optional>

namespace fennick {

// The total paid, in units of the receipt's currency. Lines that name a total are looked at in order of how
// clearly they do ("Grand total" before "Total" before "Amount"); subtotals, taxes, cash handed over and
// change do not count. Without any such line, the largest number next to a currency sign.
std::optional<double> readAmount(const QList<TextLine> &lines);

} // namespace fennick
