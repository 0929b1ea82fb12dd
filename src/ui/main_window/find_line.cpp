#include "ui/main_window/find_line.h"

#include "model/receipt_query.h"
#include "ui/interface_language.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QLocale languageOfTheWindows() {
    return QLocale(InterfaceLanguage::chosen(QLocale::system().uiLanguages()).value_or(u"en"_s));
}

} // namespace

FindLine::FindLine(QWidget *parent)
    : QWidget(parent)
    , language_(languageOfTheWindows())
    , text_(new QLineEdit(this))
    , count_(new QLabel(this)) {
    setObjectName(u"findLine"_s);
    text_->setObjectName(u"findText"_s);
    text_->setAccessibleName(tr("Find"));
    //: What can be typed to find receipts. Keep ">100"; the others as they are understood in your language.
    text_->setPlaceholderText(tr("Words, 12.50, >100, eur, march 2024, failed, no photo"));
    text_->setClearButtonEnabled(true);
    text_->installEventFilter(this);
    count_->setObjectName(u"findCount"_s);
    auto *const close = new QToolButton(this);
    close->setObjectName(u"closeFind"_s);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setAccessibleName(tr("Close Find"));
    close->setToolTip(close->accessibleName());
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 6, 16, 6);
    layout->addWidget(text_, 1);
    layout->addWidget(count_);
    layout->addWidget(close);
    connect(text_, &QLineEdit::textChanged, this, &FindLine::emitQuery);
    connect(text_, &QLineEdit::returnPressed, this, &FindLine::leftDownwards);
    connect(close, &QToolButton::clicked, this, &FindLine::close);
    // Also while the focus is in the table; a hidden line has no shortcuts.
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &FindLine::close);
    hide();
}

void FindLine::open() {
    if (isHidden()) {
        show();
        Q_EMIT opened();
    }
    text_->setFocus(Qt::ShortcutFocusReason);
    text_->selectAll();
}

void FindLine::showCount(int found, int all) {
    //: %1 is the number of receipts that were found, %2 that of all.
    count_->setText(tr("%1 of %2").arg(language_.toString(found), language_.toString(all)));
    count_->setAccessibleName(tr("%1 of %2 receipts found").arg(found).arg(all));
}

void FindLine::emitQuery() {
    Q_EMIT queryChanged(ReceiptQuery(text_->text(), language_));
}

void FindLine::close() {
    text_->clear();
    hide();
    Q_EMIT closed();
}

bool FindLine::eventFilter(QObject *watched, QEvent *event) {
    if (watched == text_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down) {
        Q_EMIT leftDownwards();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace fennick
