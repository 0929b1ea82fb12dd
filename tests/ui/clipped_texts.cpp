#include "clipped_texts.h"

#include "ui/settings/settings_section.h"
#include "ui/widgets/elided_label.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

namespace fennick::test {

using namespace Qt::StringLiterals;

namespace {

// Of the text wrapped into this width: more than the width when a word is wider.
int wrappedWidth(const QLabel *label, int width) {
    const QRect room(0, 0, width, QWIDGETSIZE_MAX);
    return label->fontMetrics().boundingRect(room, Qt::TextWordWrap, label->text()).width();
}

bool isViewport(const QWidget *widget) {
    const auto *const area = qobject_cast<const QAbstractScrollArea *>(widget->parentWidget());
    return area != nullptr && area->viewport() == widget;
}

// Whether no ancestor cuts the widget off. What can be scrolled to, from top to bottom, is not cut off.
bool liesInItsWindow(const QWidget *widget) {
    bool isScrolled = false;
    for (const QWidget *ancestor = widget->parentWidget(); ancestor != nullptr && !widget->isWindow();
         ancestor = ancestor->isWindow() ? nullptr : ancestor->parentWidget()) {
        const QRect place(widget->mapTo(ancestor, QPoint()), widget->size());
        isScrolled = isScrolled || isViewport(ancestor);
        if (place.left() < 0 || place.right() >= ancestor->width() ||
            (!isScrolled && (place.top() < 0 || place.bottom() >= ancestor->height()))) {
            return false;
        }
    }
    return true;
}

bool fits(const QLabel *label) {
    if (!label->wordWrap()) {
        return label->sizeHint().width() <= label->width() && label->sizeHint().height() <= label->height();
    }
    const int width = label->contentsRect().width();
    return wrappedWidth(label, width) <= width && label->heightForWidth(label->width()) <= label->height();
}

bool fits(const QAbstractButton *button) {
    if (button->hasHeightForWidth()) { // wraps
        return button->minimumSizeHint().width() <= button->width() &&
               button->heightForWidth(button->width()) <= button->height();
    }
    return button->sizeHint().width() <= button->width() && button->sizeHint().height() <= button->height();
}

bool fits(const QLineEdit *field) {
    constexpr int innerMargins = 8; // a frame and two pixels on either side, as the style draws it
    return field->fontMetrics().horizontalAdvance(field->placeholderText()) + innerMargins <= field->width();
}

// The section paints its title itself, in bold, over its whole width.
bool fits(const SettingsSection *section) {
    QFont bold = section->font();
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(section->accessibleName()) + 4 <= section->width();
}

// Paths are elided by intention, with the whole of them in a tool tip, and so is the English line about the
// default archive folder.
bool fits(const ElidedLabel *label) {
    const QString whole = label->accessibleName();
    const bool mayBeElided = whole.startsWith(u'/') || whole.startsWith(u"Default: “Receipt Archive”");
    return label->text() == whole || (mayBeElided && !label->toolTip().isEmpty());
}

// The columns of a file dialog are the library's, and can be drawn wider.
QStringList clippedSections(const QHeaderView *header) {
    QStringList clipped;
    if (qobject_cast<const QFileDialog *>(header->window()) != nullptr) {
        return clipped;
    }
    for (int section = 0; section < header->count(); ++section) {
        if (!header->isSectionHidden(section) &&
            header->sectionSizeHint(section) > header->sectionSize(section)) {
            clipped.append(header->model()->headerData(section, header->orientation()).toString());
        }
    }
    return clipped;
}

QStringList clippedTitles(const QMenuBar *bar) {
    QStringList clipped;
    const auto titles = bar->actions();
    for (const QAction *const title : titles) {
        const QRect place = bar->actionGeometry(const_cast<QAction *>(title));
        if (place.isEmpty() || !bar->rect().contains(place)) {
            clipped.append(title->text());
        }
    }
    return clipped;
}

// A bar that is too narrow hides its last buttons behind an arrow.
QStringList clippedButtons(const QToolBar *bar) {
    QStringList clipped;
    const auto actions = bar->actions();
    for (QAction *const action : actions) {
        const QWidget *const button = bar->widgetForAction(action);
        if (action->isVisible() && !button->isVisible()) {
            clipped.append(button->accessibleName() + action->text());
        }
    }
    return clipped;
}

// Nothing for a widget that shows no text of its own.
QStringList clippedTextsOf(const QWidget *widget) {
    const auto clippedIf = [](bool isClipped, const QString &text) {
        return isClipped && !text.isEmpty() ? QStringList{text} : QStringList();
    };
    if (const auto *const elided = qobject_cast<const ElidedLabel *>(widget)) {
        return clippedIf(!fits(elided) || !liesInItsWindow(widget), elided->text());
    }
    if (const auto *const label = qobject_cast<const QLabel *>(widget)) {
        return clippedIf(!fits(label) || !liesInItsWindow(widget), label->text());
    }
    if (const auto *const button = qobject_cast<const QAbstractButton *>(widget)) {
        return clippedIf(!fits(button) || !liesInItsWindow(widget), button->text());
    }
    if (const auto *const field = qobject_cast<const QLineEdit *>(widget)) {
        return clippedIf(!fits(field) || !liesInItsWindow(widget), field->placeholderText());
    }
    if (const auto *const section = qobject_cast<const SettingsSection *>(widget)) {
        return clippedIf(!fits(section) || !liesInItsWindow(widget), section->accessibleName());
    }
    if (const auto *const header = qobject_cast<const QHeaderView *>(widget)) {
        return clippedSections(header);
    }
    if (const auto *const titles = qobject_cast<const QMenuBar *>(widget)) {
        return clippedTitles(titles);
    }
    if (const auto *const bar = qobject_cast<const QToolBar *>(widget)) {
        return clippedButtons(bar);
    }
    return {};
}

QStringList headerTexts(const QHeaderView *header) {
    QStringList texts;
    for (int section = 0; section < header->count(); ++section) {
        for (const int role : {Qt::DisplayRole, Qt::AccessibleTextRole}) {
            texts.append(header->model()->headerData(section, header->orientation(), role).toString());
        }
    }
    return texts;
}

QStringList ownTextsOf(const QWidget *widget) {
    if (qobject_cast<const ElidedLabel *>(widget) != nullptr) { // the rest depends on its width
        return {widget->accessibleName(), widget->accessibleDescription()};
    }
    QStringList texts = {widget->toolTip(), widget->accessibleName(), widget->accessibleDescription()};
    if (const auto *const label = qobject_cast<const QLabel *>(widget)) {
        texts.append(label->text());
    }
    if (const auto *const button = qobject_cast<const QAbstractButton *>(widget)) {
        texts.append(button->text());
    }
    if (const auto *const field = qobject_cast<const QLineEdit *>(widget)) {
        texts.append(field->placeholderText());
    }
    if (const auto *const header = qobject_cast<const QHeaderView *>(widget)) {
        texts.append(headerTexts(header));
    }
    return texts;
}

} // namespace

QString clippedTexts(const QWidget *window) {
    QStringList clipped;
    if (const auto *const menu = qobject_cast<const QMenu *>(window)) {
        return menu->sizeHint().width() > menu->screen()->availableSize().width() ? menu->title() : QString();
    }
    const auto widgets = window->findChildren<QWidget *>();
    for (const QWidget *const widget : widgets) {
        if (!widget->isVisibleTo(window) || widget->window() != window) {
            continue;
        }
        const QStringList texts = clippedTextsOf(widget);
        for (const QString &text : texts) {
            clipped.append(QLatin1StringView(widget->metaObject()->className()) + u' ' +
                           widget->objectName() + u": "_s + text);
        }
    }
    return clipped.join(u'\n');
}

QStringList textsOf(const QWidget *window) {
    QStringList texts = {window->windowTitle()};
    const auto widgets = window->findChildren<QWidget *>();
    for (const QWidget *const widget : widgets) {
        texts.append(ownTextsOf(widget));
    }
    const auto actions = window->findChildren<QAction *>();
    for (const QAction *const action : actions) {
        texts.append(action->text());
    }
    texts.removeAll(QString());
    return texts;
}

} // namespace fennick::test
