#pragma once

#include <QList>
#include <QStringList>

namespace fennick {

enum class RowKind {
    text,    // cells from left to right, the first at the left margin and the last at the right one
    centred, // one cell
    rule,    // the first cell's character all over, or a drawn line if there is none
    gap,
    barcode,
    qrCode,
};

struct SheetRow {
    RowKind kind = RowKind::text;
    QStringList cells = {};
    double scale = 1;
    bool isBold = false;
    bool isInverse = false;  // white on black
    bool isCut = false;      // text that is too long ends early, instead of going on in another row
    QList<double> ends = {}; // shares of the width at which the cells after the first end, if not evenly
};

// What is printed, from top to bottom.
struct ReceiptSheet {
    QList<SheetRow> rows;
    int columns = 42; // letters in a row
};

} // namespace fennick
