#pragma once

#include <QImage>
#include <QList>
#include <QPainter>
#include <QString>

namespace fennick {

enum class RowStyle {
    Title,  // large, bold, centred
    Centre, // centred
    Item,   // left text, right text at the other margin
    Strong, // an item in larger bold type
    Rule,   // a dashed line
    Gap,    // half an empty row
};

struct Row {
    RowStyle style = RowStyle::Item;
    QString left;
    QString right = {};
};

using Page = QList<Row>;

// Draws `page` in the sans or the typewriter face from the painter's origin, `width` wide, rows `unit` high.
void drawPage(QPainter &painter, const Page &page, double width, double unit, bool typewriter);

// `page` on a white picture `width` pixels wide with a margin, as long as it needs.
QImage pictureOf(const Page &page, int width, bool typewriter);

} // namespace fennick
