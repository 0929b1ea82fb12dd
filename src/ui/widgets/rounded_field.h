#pragma once

#include <QLineEdit>

namespace fennick {

// A text field with a rounded border that stays visible on a card of the field's own colour, in light and in
// dark palettes, and shows the focus.
class RoundedField : public QLineEdit {
    Q_OBJECT

public:
    explicit RoundedField(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace fennick
