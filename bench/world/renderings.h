#pragma once

#include "receipt_sheet.h"
#include "seeded_random.h"

#include <QImage>

#include <optional>

namespace fennick {

enum class Rendering {
    textPdf, // a PDF with a layer of text
    clean,   // sharp and straight
    faint,   // little ink, or a matrix of dots
    warped,  // bent, folded and lit from one side
    page,    // scanned with a page or the dark lid around it, sometimes sideways or upside down
    photo,   // small print on a table
};

// Nothing if there is no such rendering.
[[nodiscard]] std::optional<Rendering> renderingNamed(const QString &name);
[[nodiscard]] QString nameOf(Rendering rendering);

// Any but TextPdf.
[[nodiscard]] QImage pictureOf(const ReceiptSheet &sheet, Rendering rendering, SeededRandom &random);

} // namespace fennick
