#pragma once

#include "receipt_sheet.h"
#include "renderings.h"
#include "seeded_random.h"

#include <QString>

namespace fennick {

// The ending of a file's name: pdf, png or jpg.
[[nodiscard]] QString extensionOf(Rendering rendering);

// Writes the sheet; false if that fails.
[[nodiscard]] bool writeReceipt(const QString &path, const ReceiptSheet &sheet, Rendering rendering,
                                SeededRandom &random);

} // namespace fennick
