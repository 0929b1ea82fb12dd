#include "ui/caption_label.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>

namespace fennick {

namespace {

constexpr int captionSymbolSize = 16;
constexpr double captionScale = 0.9; // of the desktop's font

} // namespace

CaptionLabel::CaptionLabel(const QString &text, Tint tint, std::optional<Symbol> symbol, QWidget *parent)
    : QWidget(parent)
    , tint_(tint)
    , textLabel_(new QLabel(this)) {
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    if (symbol) {
        icon_ = symbolIcon(*symbol, tint);
        symbolLabel_ = new QLabel(this);
        symbolLabel_->setFixedSize(captionSymbolSize, captionSymbolSize);
        layout->addWidget(symbolLabel_, 0, Qt::AlignVCenter);
    }
    textLabel_->setTextFormat(Qt::PlainText);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * captionScale);
    textLabel_->setFont(small);
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
    if (event->type() == QEvent::ApplicationPaletteChange) {
        applyTint();
    }
}

void CaptionLabel::applyTint() {
    QPalette tinted = textLabel_->palette();
    tinted.setColor(QPalette::WindowText, tintColor(tint_, QGuiApplication::palette()));
    textLabel_->setPalette(tinted);
    if (symbolLabel_ != nullptr) {
        symbolLabel_->setPixmap(
            icon_.pixmap(QSize(captionSymbolSize, captionSymbolSize), devicePixelRatio()));
    }
}

} // namespace fennick
