#pragma once

#include <QLineEdit>

namespace fennick {

// A text field with a rounded border that shows the focus and stays visible on a background of its own
// colour, in light and dark palettes.
class RoundedField : public QLineEdit {
    Q_OBJECT

public:
    explicit RoundedField(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace fennick
