#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QStringList>

namespace fennick::engine {

// A white page with `rows` in black, letters `pixelSize` high, two such heights from row to row.
inline QImage drawnPage(const QStringList &rows, int pixelSize, int width = 0) {
    QImage picture(width > 0 ? width : 22 * pixelSize, static_cast<int>(rows.size() + 2) * 2 * pixelSize,
                   QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixelSize);
    painter.setFont(font);
    for (int row = 0; row < rows.size(); ++row) {
        painter.drawText(pixelSize, (row + 2) * 2 * pixelSize, rows[row]);
    }
    return picture;
}

} // namespace fennick::engine
