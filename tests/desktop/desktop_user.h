#pragma once

#include "accessible.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace fennick::test {

// A person at the virtual desktop: reads what the windows say, clicks where controls are, and types. Each
// action waits for its control and fails the test process when it does not come.
class DesktopUser {
public:
    using Wait = std::function<bool(const std::function<bool()> &)>;

    DesktopUser(const AccessibilityBus *bus, Wait waitFor);

    bool sees(const QString &window, const QString &role, const QString &name) const;
    void waitToSee(const QString &window, const QString &role, const QString &name) const;
    void waitForWindow(const QString &title) const;
    void waitUntilGone(const QString &title) const;

    // Clicks the middle of the control.
    void click(const QString &window, const QString &role, const QString &name) const;

    // Clicks a point of the table cell with this text, `x` pixels from its left edge, or of another cell in
    // its row, `columnsFurther` to the right.
    void clickCell(const QString &window, const QString &text, int columnsFurther, int x) const;

    // Keys for the window that has the focus.
    void press(const QString &window, const QString &keys) const;
    void type(const QString &window, const QString &text) const;

    // Chooses the entry at this place, from 1, of the menu that a tool button opens.
    void chooseFromMenu(const QString &window, const QString &button, int entry) const;

    // Gives a file dialog the path and confirms it.
    void answerFileDialog(const QString &title, const QString &path) const;

private:
    Accessible find(const QString &window, const QString &role, const QString &name) const;
    void must(bool holds, const QString &what) const;

    const AccessibilityBus *bus_;
    Wait waitFor_;
};

} // namespace fennick::test
