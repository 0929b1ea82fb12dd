#pragma once

#include "model/receipt.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace fennick::fuzz {

// A text of any UTF-16 units, also ones that are no well-formed text.
QString consumeText(FuzzedDataProvider &input);

// A receipt whose every field is made up from the input; it also names no file that exists.
Receipt consumeReceipt(FuzzedDataProvider &input);

} // namespace fennick::fuzz
