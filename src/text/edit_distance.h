#pragma once

#include <QStringView>

namespace fennick {

// How many letters must be replaced, added or left out to turn `left` into `right`.
int editDistance(QStringView left, QStringView right);

// 1 - editDistance() / the longer one's length: 1 = the same, 0 = nothing in common.
double similarity(QStringView left, QStringView right);

} // namespace fennick
