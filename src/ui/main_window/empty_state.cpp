#include "ui/main_window/empty_state.h"

#include "ui/widgets/symbol_label.h"
#include "ui/widgets/text_style.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int largeSymbolSize = 44;

} // namespace

EmptyState::EmptyState(QWidget *parent)
    : QWidget(parent)
    , explanation_(new QLabel(
          tr("Choose a folder to watch, then drop in receipt PDFs or photos.\nEach one is scanned, "
             "renamed, and added to Photos for Workday mobile."),
          this))
    , choose_(new QPushButton(tr("Choose Folder…"), this)) {
    auto *const title = new QLabel(tr("No receipts yet"), this);
    title->setObjectName(u"emptyTitle"_s);
    QFont large = styledFont(title->font(), TextStyle::title);
    large.setWeight(QFont::Medium);
    title->setFont(large);
    explanation_->setObjectName(u"emptyExplanation"_s);
    explanation_->setAlignment(Qt::AlignCenter);
    explanation_->setFont(styledFont(explanation_->font(), TextStyle::callout));
    choose_->setObjectName(u"emptyChooseFolder"_s);
    choose_->setDefault(true);
    connect(choose_, &QPushButton::clicked, this, &EmptyState::chooseFolderRequested);

    auto *const layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addStretch();
    layout->addWidget(new SymbolLabel(Symbol::receipts, Tint::secondary, largeSymbolSize, this), 0,
                      Qt::AlignHCenter);
    layout->addWidget(title, 0, Qt::AlignHCenter);
    layout->addWidget(explanation_, 0, Qt::AlignHCenter);
    layout->addWidget(choose_, 0, Qt::AlignHCenter);
    layout->addStretch();
    applyTints();
}

void EmptyState::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange) {
        applyTints();
    }
}

void EmptyState::applyTints() {
    QPalette secondary = explanation_->palette();
    secondary.setColor(QPalette::WindowText, tintColor(Tint::secondary, QGuiApplication::palette()));
    explanation_->setPalette(secondary);
    const QPalette desktop = QGuiApplication::palette();
    QPalette filled = desktop;
    filled.setColor(QPalette::Button, desktop.color(QPalette::Active, QPalette::Highlight));
    filled.setColor(QPalette::ButtonText, desktop.color(QPalette::Active, QPalette::HighlightedText));
    choose_->setPalette(filled);
}

} // namespace fennick
