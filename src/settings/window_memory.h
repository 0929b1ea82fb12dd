#pragma once

#include "platform/user_defaults.h"

#include <QByteArray>

namespace fennick {

// The size and position of the main window, the widths of the table's columns and what was explained to the
// user, kept between starts. They
// have a file of their own because they are not preferences. Main thread only.
class WindowMemory {
public:
    WindowMemory();

    // In the toolkit's encoding; empty if nothing is stored.
    QByteArray geometry() const;
    QByteArray columns() const;

    // Whether a notice has explained that the closed window stays in the tray.
    bool isTrayExplained() const;
    void setTrayExplained();

    void remember(const QByteArray &geometry, const QByteArray &columns);

private:
    QByteArray bytes(const QString &key) const;

    UserDefaults defaults_;
};

} // namespace fennick
