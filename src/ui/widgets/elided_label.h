#pragma once

#include <QLabel>

namespace fennick {

// One line of plain text, elided in the middle if it does not fit, so that the start and the end of a path
// stay visible. The tool tip then shows the whole text, and a note if there is one.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    // Shows `text` in the tint for values that are set or missing.
    void showValue(const QString &text, bool isSet);

    // Further text for the tool tip and assistive tools; empty for none.
    void setNote(const QString &note);

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
    QString note_;
    bool isSet_ = false;
};

} // namespace fennick
