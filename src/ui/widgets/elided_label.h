#pragma once

#include <QLabel>

namespace fennick {

// One line of plain text that is cut in the middle when it does not fit, so that the start and the end of a
// path stay visible. The whole text is its tool tip then.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    // Shows `text` in the tint for set or for missing values.
    void showValue(const QString &text, bool isSet);

    const QString &fullText() const { return fullText_; }

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void elide();
    void applyTint();

    QString fullText_;
    bool isSet_ = false;
};

} // namespace fennick
