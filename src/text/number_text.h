#pragma once

#include <QString>

namespace fennick {

// `value` as "%.2f" formats it in the C locale: two decimals, a point, no grouping, ties of the exact binary
// value to even. Independent of the process's locale.
QString twoDecimals(double value);

} // namespace fennick
