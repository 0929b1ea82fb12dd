#pragma once

#include <QCheckBox>

namespace fennick {

// A check box, drawn as a switch at the end of its text, which wraps if it is too long. It remains a check
// box for the keyboard and for assistive tools. The whole line is clickable.
class SwitchControl : public QCheckBox {
    Q_OBJECT

public:
    // Room for the focus ring around the switch, in pixels.
    static constexpr int focusMargin = 4;

    explicit SwitchControl(const QString &text, QWidget *parent = nullptr);

    // Shows a value without emitting signals.
    void showValue(bool isOn);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    bool hitButton(const QPoint &position) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect trackRectangle() const;
    QRect textRectangle() const;
};

} // namespace fennick
