#pragma once

#include "platform/user_defaults.h"

#include <QByteArray>

namespace fennick {

// The sizes and positions of windows, the widths of the table's columns and what was explained to the user,
// kept between starts. They have a file of their own because they are not preferences. Main thread only.
class WindowMemory {
public:
    WindowMemory();

    // Of the main window and its table, in the toolkit's encoding; empty if nothing is stored.
    QByteArray geometry() const;
    QByteArray columns() const;

    // Of another window, by its object name.
    QByteArray geometryOf(const QString &window) const;
    void rememberGeometryOf(const QString &window, const QByteArray &geometry);

    // Whether a notice has explained that the closed window stays in the tray.
    bool isTrayExplained() const;
    void setTrayExplained();

    void remember(const QByteArray &geometry, const QByteArray &columns);

private:
    QByteArray bytes(const QString &key) const;

    UserDefaults defaults_;
};

} // namespace fennick
