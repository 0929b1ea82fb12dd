#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QFont>
#include <QPainter>
#include <QPdfWriter>
#include <QSizeF>

namespace fennick {

// A PDF in memory that is drawn by Qt: real text in embedded fonts, in any script that the system has fonts
// for. Needs a QGuiApplication.
class PaintedPdf {
public:
    // Coordinates and font sizes are tenths of a point: text is laid out by whole units.
    static constexpr int unitsPerPoint = 10;

    explicit PaintedPdf(QSizeF pagePoints);

    QPainter &painter() { return painter_; }
    void newPage() { writer_.newPage(); }

    [[nodiscard]] QByteArray finished();

private:
    QBuffer buffer_;
    QPdfWriter writer_;
    QPainter painter_;
};

// For PaintedPdf; `points` is its size.
[[nodiscard]] QFont reportFont(double points, QFont::Weight weight);

} // namespace fennick
