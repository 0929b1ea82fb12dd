#pragma once

#include "model/receipt.h"

#include <QString>

namespace fennick {

// What a menu calls the receipt: its place, else its file's name, not longer than a menu is wide.
QString shortNameOf(const Receipt &receipt);

} // namespace fennick
