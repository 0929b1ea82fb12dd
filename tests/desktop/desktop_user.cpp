#include "desktop_user.h"

#include "virtual_desktop.h"

#include <QRect>

#include <algorithm>

namespace fennick::test {

using namespace Qt::StringLiterals;

DesktopUser::DesktopUser(const AccessibilityBus *bus, Wait waitFor)
    : bus_(bus)
    , waitFor_(std::move(waitFor)) {}

void DesktopUser::must(bool holds, const QString &what) const {
    if (!holds) {
        qFatal("%s", qPrintable(what));
    }
}

bool DesktopUser::sees(const QString &window, const QString &role, const QString &name) const {
    const QList<Accessible> all = bus_->elements(window);
    return std::any_of(all.begin(), all.end(), [&](const Accessible &each) {
        return each.role == role && each.name == name && bus_->isShowing(each);
    });
}

void DesktopUser::waitToSee(const QString &window, const QString &role, const QString &name) const {
    must(waitFor_([&] { return sees(window, role, name); }), u"not seen: "_s + role + u' ' + name);
}

void DesktopUser::waitForWindow(const QString &title) const {
    must(waitFor_([&] {
             const auto window = VirtualDesktop::window(title);
             return window && VirtualDesktop::isActive(*window);
         }),
         u"no active window "_s + title);
}

void DesktopUser::waitUntilGone(const QString &title) const {
    must(waitFor_([&] { return !VirtualDesktop::window(title); }), title + u" stays"_s);
}

Accessible DesktopUser::find(const QString &window, const QString &role, const QString &name) const {
    waitToSee(window, role, name);
    const QList<Accessible> all = bus_->elements(window);
    return *std::find_if(all.begin(), all.end(), [&](const Accessible &each) {
        return each.role == role && each.name == name && bus_->isShowing(each);
    });
}

void DesktopUser::click(const QString &window, const QString &role, const QString &name) const {
    VirtualDesktop::click(bus_->extents(find(window, role, name)).center(), 1);
}

void DesktopUser::clickCell(const QString &window, const QString &text, int columnsFurther, int x) const {
    const Accessible cell = find(window, u"cell"_s, text);
    const QList<Accessible> all = bus_->elements(window);
    const auto place = std::find_if(all.begin(), all.end(),
                                    [&cell](const Accessible &each) { return each.path == cell.path; });
    const QRect target = bus_->extents(*(place + columnsFurther));
    VirtualDesktop::click({target.left() + x, target.center().y()}, 1);
}

void DesktopUser::press(const QString &window, const QString &keys) const {
    const auto id = VirtualDesktop::window(window);
    must(id && VirtualDesktop::press(*id, keys), keys + u" could not be pressed in "_s + window);
}

void DesktopUser::type(const QString &window, const QString &text) const {
    waitForWindow(window);
    outputOf(u"xdotool"_s, {u"type"_s, u"--delay"_s, u"2"_s, text});
}

void DesktopUser::chooseFromMenu(const QString &window, const QString &button, int entry) const {
    click(window, u"button menu"_s, button);
    must(waitFor_([] { return VirtualDesktop::isMenuOpen(); }), u"no menu of "_s + button);
    VirtualDesktop::pressForMenu(QStringList(entry, u"Down"_s) + QStringList{u"Return"_s});
}

void DesktopUser::answerFileDialog(const QString &title, const QString &path) const {
    waitForWindow(title);
    press(title, u"ctrl+a"_s);
    type(title, path);
    press(title, u"Return"_s);
    waitUntilGone(title);
}

} // namespace fennick::test
