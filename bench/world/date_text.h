#pragma once

#include "customs.h"

#include <QDateTime>

namespace fennick {

// `moment` as `pattern` says: d dd ddd dddd M MM MMM MMMM yy yyyy H HH h hh m mm s ss as usual, with the
// names of days and months from the customs; BB and BBBB is the Buddhist year, AP and ap the half of the day,
// and what stands between ' is itself.
QString dateText(const QDateTime &moment, const QString &pattern, const Customs &customs);

} // namespace fennick
