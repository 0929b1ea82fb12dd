#pragma once

#include <QString>

namespace fennick::engine {

// `line` with the prices in it as they were printed before recognition garbled them: "RM7.0O" becomes
// "RM 7.00", "36. 20" becomes "36.20", "Change 005" becomes "Change 0.05". Only what has the shape of a price
// afterwards is touched.
QString repairedPrices(const QString &line);

} // namespace fennick::engine
