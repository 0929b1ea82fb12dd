#pragma once

#include <QCheckBox>

namespace fennick {

// A check box drawn as a switch at the end of its line of text, which wraps when it is too long. To the
// keyboard and to assistive tools it is a check box. The whole line takes clicks.
class SwitchControl : public QCheckBox {
    Q_OBJECT

public:
    // Room around the switch for the ring that shows the focus, in pixels.
    static constexpr int focusMargin = 4;

    explicit SwitchControl(const QString &text, QWidget *parent = nullptr);

    // Shows a value that is not the user's doing: without the signals.
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
