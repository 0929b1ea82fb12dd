#pragma once

#include <QFont>
#include <QPointF>
#include <QString>
#include <QTextLayout>

class QPainter;

namespace fennick {

// A text in lines of one width, cut with an ellipsis after so many lines.
class WrappedText {
public:
    WrappedText(const QString &text, const QFont &font, double width, int mostLines,
                Qt::Alignment alignment = Qt::AlignLeft);

    double height() const { return height_; }
    void draw(QPainter &painter, QPointF place) const { layout_.draw(&painter, place); }

private:
    // Returns where the text has to end to fit; -1 if it fits.
    qsizetype layOut(double width, int mostLines);

    QTextLayout layout_;
    double height_ = 0;
};

} // namespace fennick
