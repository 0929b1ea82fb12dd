#pragma once

#include "pipeline/typed_fields.h"

#include <QPalette>
#include <QRectF>
#include <QSize>

class QPainter;

namespace fennick {

// Where the value of a field stands on the page that is shown.
struct PageMark {
    ReceiptField field;
    QRectF area; // 0 to 1 from the top left corner of the page

    // The mark's frame on a page of this size, a little larger than the print.
    QRectF frameOn(const QSize &page) const;
};

// Draws the frame of a mark over the print, which stays as legible as it was. Its colour is that of the
// desktop's selection, so dark that it stands out from paper; a light rim sets it off from dark pictures.
void paintMark(QPainter &painter, const QRectF &frame, bool isEmphasised, const QPalette &palette);

} // namespace fennick
