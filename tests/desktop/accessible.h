#pragma once

#include <QDBusConnection>
#include <QList>
#include <QProcess>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace fennick::test {

// What assistive programs are told about one element of a window: read over the accessibility bus.
struct Accessible {
    QString service;
    QString path;
    QString role; // such as "push button"
    QString name;
};

// The accessibility bus of the test's session. Needs a PrivateSession before it; programs started afterwards
// with QT_LINUX_ACCESSIBILITY_ALWAYS_ON, which it sets, tell of their windows here.
class AccessibilityBus {
public:
    static bool isInstalled();

    AccessibilityBus();
    ~AccessibilityBus();

    // Every element of the windows with this title, the window first.
    QList<Accessible> elements(const QString &windowTitle) const;

    bool grabFocus(const Accessible &element) const;

    // Whether the element is on the screen, and where.
    bool isShowing(const Accessible &element) const;
    bool hasFocus(const Accessible &element) const;
    QRect extents(const Accessible &element) const;

    // What is said of the element besides its name.
    QString description(const Accessible &element) const;

private:
    QList<Accessible> children(const QString &service, const QString &path) const;
    bool hasState(const Accessible &element, int state) const;
    QString property(const QString &service, const QString &path, const QString &name) const;
    Accessible describe(const QString &service, const QString &path) const;
    void collect(const Accessible &element, QList<Accessible> &found) const;

    QProcess launcher_;
    std::optional<QDBusConnection> bus_;
};

} // namespace fennick::test
