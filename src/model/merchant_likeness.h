#pragma once

#include <QString>

namespace fennick {

// A merchant's name as merchants are compared: its letters and digits without case and accents.
QString merchantKey(const QString &name);

// Whether two such keys are one name but for its spelling: a letter or two that were read wrong, or an
// address behind one of them. Of short names every letter counts.
bool isSameMerchant(const QString &left, const QString &right);

} // namespace fennick
