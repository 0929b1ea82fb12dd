#pragma once

#include "receipt_sheet.h"

namespace fennick {

// The sheet with what is too long for a row set smaller, cut or continued in the next, as tills do.
[[nodiscard]] ReceiptSheet fitted(const ReceiptSheet &sheet);

} // namespace fennick
