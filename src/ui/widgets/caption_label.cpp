#include "ui/widgets/caption_label.h"

#include "ui/widgets/symbol_label.h"
#include "ui/widgets/text_style.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>

namespace fennick {

namespace {

constexpr int captionSymbolSize = 16;

} // namespace

CaptionLabel::CaptionLabel(const QString &text, Tint tint, std::optional<Symbol> symbol, QWidget *parent)
    : QWidget(parent)
    , tint_(tint)
    , textLabel_(new QLabel(this)) {
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    if (symbol) {
        layout->addWidget(new SymbolLabel(*symbol, tint, captionSymbolSize, this), 0, Qt::AlignVCenter);
    }
    textLabel_->setTextFormat(Qt::PlainText);
    textLabel_->setFont(styledFont(font(), TextStyle::caption));
    layout->addWidget(textLabel_, 1);
    setText(text);
    applyTint();
}

QString CaptionLabel::text() const {
    return textLabel_->text();
}

void CaptionLabel::setText(const QString &text) {
    textLabel_->setText(text);
}

void CaptionLabel::setWordWrap(bool wraps) {
    textLabel_->setWordWrap(wraps);
}

void CaptionLabel::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange) {
        applyTint();
    }
}

void CaptionLabel::applyTint() {
    QPalette tinted = textLabel_->palette();
    tinted.setColor(QPalette::WindowText, tintColor(tint_, QGuiApplication::palette()));
    textLabel_->setPalette(tinted);
}

} // namespace fennick
