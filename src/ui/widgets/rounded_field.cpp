#include "ui/widgets/rounded_field.h"

#include <QPainter>

namespace fennick {

namespace {

constexpr QMargins textMargin(6, 4, 6, 4);
constexpr double fieldRadius = 5;
constexpr float restOpacity = 0.5F; // of the text colour

} // namespace

RoundedField::RoundedField(QWidget *parent)
    : QLineEdit(parent) {
    setFrame(false);
    setTextMargins(textMargin);
}

void RoundedField::paintEvent(QPaintEvent *event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = hasFocus() ? 2 : 1;
    QColor color = palette().color(hasFocus() ? QPalette::Highlight : QPalette::Text);
    color.setAlphaF(hasFocus() ? 1 : restOpacity);
    painter.setPen(QPen(color, width));
    const QRectF border = QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
    painter.drawRoundedRect(border, fieldRadius, fieldRadius);
}

} // namespace fennick
