#include "ui/widgets/symbol_label.h"

#include <QEvent>

namespace fennick {

SymbolLabel::SymbolLabel(Symbol symbol, Tint tint, int side, QWidget *parent)
    : QLabel(parent)
    , icon_(symbolIcon(symbol, tint)) {
    setFixedSize(side, side);
    draw();
}

void SymbolLabel::changeEvent(QEvent *event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange) {
        draw();
    }
}

void SymbolLabel::draw() {
    setPixmap(icon_.pixmap(size(), devicePixelRatio()));
}

} // namespace fennick
