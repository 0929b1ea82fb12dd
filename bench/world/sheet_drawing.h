#pragma once

#include "receipt_sheet.h"
#include "seeded_random.h"

#include <QPainter>

namespace fennick {

struct SheetLook {
    QString family;
    double rowHeight = 1.3; // in letters' heights
};

// A font that tills print like and that has all letters of the sheet.
[[nodiscard]] SheetLook chosenLook(const ReceiptSheet &sheet, bool isForDocuments, SeededRandom &random);

[[nodiscard]] double sheetHeight(const ReceiptSheet &sheet, const SheetLook &look, double width);

// Draws into the painter's origin, as wide as `width`.
void drawSheet(QPainter &painter, const ReceiptSheet &sheet, const SheetLook &look, double width);

} // namespace fennick
