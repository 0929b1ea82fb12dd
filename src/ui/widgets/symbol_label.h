#pragma once

#include "ui/widgets/symbols.h"

#include <QLabel>

namespace fennick {

// A symbol that stands by itself, in the colours of the palette of the moment.
class SymbolLabel : public QLabel {
    Q_OBJECT

public:
    // `side` in pixels.
    SymbolLabel(Symbol symbol, Tint tint, int side, QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;

private:
    void draw();

    QIcon icon_;
};

} // namespace fennick
