#pragma once

#include <QString>
#include <QStringList>

namespace fennick {

// The numbers that a person may mean by what was typed, which need not be finished: digits with at most one
// point, as in "1234.5", and "-" in front if it is negative. Understands points and commas for either use,
// blanks and apostrophes between thousands and a currency's sign. "1,234" has two readings, first the one
// with thousands; what is no number has none.
QStringList readingsOfNumber(const QString &typed);

} // namespace fennick
