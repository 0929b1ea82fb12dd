#include "ui/widgets/elided_label.h"

#include "ui/widgets/plain_tool_tip.h"
#include "ui/widgets/symbols.h"

#include <QEvent>
#include <QGuiApplication>

namespace fennick {

ElidedLabel::ElidedLabel(QWidget *parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ElidedLabel::showValue(const QString &text, bool isSet) {
    fullText_ = displayText(text);
    isSet_ = isSet;
    setAccessibleName(fullText_);
    applyTint();
    elide();
}

void ElidedLabel::setNote(const QString &note) {
    note_ = note;
    setAccessibleDescription(note);
    elide();
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(u'x') * 8, QLabel::minimumSizeHint().height()};
}

QSize ElidedLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(fullText_) + 2, QLabel::sizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::changeEvent(QEvent *event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange) {
        applyTint();
    }
    if (event->type() == QEvent::FontChange) {
        elide();
    }
}

void ElidedLabel::elide() {
    const QString shown = fontMetrics().elidedText(fullText_, Qt::ElideMiddle, width());
    setText(shown);
    QStringList lines;
    if (shown != fullText_ || !note_.isEmpty()) {
        lines.append(plainToolTip(fullText_));
    }
    if (!note_.isEmpty()) {
        lines.append(plainToolTip(note_));
    }
    setToolTip(lines.join(u"<br>"));
}

void ElidedLabel::applyTint() {
    QPalette tinted = palette();
    tinted.setColor(QPalette::WindowText,
                    tintColor(isSet_ ? Tint::primary : Tint::secondary, QGuiApplication::palette()));
    setPalette(tinted);
}

} // namespace fennick
