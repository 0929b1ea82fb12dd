#include "ui/main_window/row_actions.h"

#include "extraction/gemini_error.h"
#include "ui/widgets/focus_frame.h"
#include "ui/widgets/plain_tool_tip.h"
#include "ui/widgets/symbols.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int buttonSize = 20;
constexpr int actionSymbolSize = 16;

QToolButton *makeButton(QWidget *parent, const QString &objectName, const QString &name) {
    auto *const button = new QToolButton(parent);
    button->setObjectName(objectName);
    button->setIconSize({actionSymbolSize, actionSymbolSize});
    button->setFixedSize(buttonSize, buttonSize);
    button->setAutoRaise(true);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

} // namespace

RowActions::RowActions(QWidget *parent)
    : QWidget(parent)
    //: Shows the file in the desktop's file manager.
    , reveal_(makeButton(this, u"reveal"_s, tr("Reveal in Finder")))
    , addToPhotos_(makeButton(this, u"addToPhotos"_s, tr("Add to Photos")))
    , retry_(makeButton(this, u"retry"_s, tr("Retry"))) {
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 8, 0);
    layout->setSpacing(8);
    layout->addWidget(reveal_);
    layout->addWidget(addToPhotos_);
    layout->addWidget(retry_);
    layout->addStretch();
    setStyleSheet(focusFrameStyle(u"highlighted-text"_s)); // only a selected row gets the focus
    setSelected(false);
    setTabStops(false);
    connect(reveal_, &QToolButton::clicked, this, &RowActions::revealRequested);
    connect(addToPhotos_, &QToolButton::clicked, this, &RowActions::addToPhotosRequested);
    connect(retry_, &QToolButton::clicked, this, &RowActions::retryRequested);
}

void RowActions::show(const Receipt &receipt, bool isPhotosExportOn) {
    addToPhotos_->setVisible(receipt.status == ReceiptStatus::done && !receipt.addedToPhotos &&
                             isPhotosExportOn);
    retry_->setVisible(receipt.status == ReceiptStatus::error);
    retry_->setToolTip(plainToolTip(receipt.error ? inUsersLanguage(*receipt.error) : tr("Retry")));
}

void RowActions::setSelected(bool isSelected) {
    const Tint tint = isSelected ? Tint::selection : Tint::primary;
    for (const auto &[button, symbol] :
         {std::pair{reveal_, Symbol::reveal}, std::pair{addToPhotos_, Symbol::addToPhotos},
          std::pair{retry_, Symbol::retry}}) {
        button->setIcon(symbolIcon(symbol, tint));
    }
}

void RowActions::setTabStops(bool areTabStops) {
    for (QToolButton *const button : {reveal_, addToPhotos_, retry_}) {
        button->setFocusPolicy(areTabStops ? Qt::TabFocus : Qt::NoFocus);
    }
}

void RowActions::followInTabOrder(QWidget *before) {
    for (QToolButton *const button : {reveal_, addToPhotos_, retry_}) {
        setTabOrder(before, button);
        before = button;
    }
}

} // namespace fennick
