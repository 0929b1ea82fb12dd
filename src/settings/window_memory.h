#pragma once

#include "platform/user_defaults.h"

#include <QByteArray>

namespace fennick {

// The size and position of the main window and the widths of the table's columns, kept between starts. They
// have a file of their own because they are not preferences. Main thread only.
class WindowMemory {
public:
    WindowMemory();

    // In the toolkit's encoding; empty if nothing is stored.
    QByteArray geometry() const;
    QByteArray columns() const;

    void remember(const QByteArray &geometry, const QByteArray &columns);

private:
    QByteArray bytes(const QString &key) const;

    UserDefaults defaults_;
};

} // namespace fennick
