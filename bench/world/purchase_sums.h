#pragma once

#include "purchase.h"

namespace fennick {

// From the lines of a purchase to what is paid.
void addUp(Purchase &purchase, const Customs &customs, SeededRandom &random);

// Makes a refund of it.
void turnAround(Purchase &purchase);

} // namespace fennick
