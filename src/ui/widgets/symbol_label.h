#pragma once

#include "ui/widgets/symbols.h"

#include <QLabel>

namespace fennick {

// A symbol on its own, drawn in the current palette's colours.
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
