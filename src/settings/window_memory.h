#pragma once

#include "platform/user_defaults.h"

#include <QByteArray>

namespace fennick {

// What the main window remembers between starts: its size and place, and the widths of the table's columns.
// Kept in a file of its own: these are no preferences. Main thread only.
class WindowMemory {
public:
    WindowMemory();

    // As the toolkit encodes them; empty when nothing is remembered.
    QByteArray geometry() const;
    QByteArray columns() const;

    void remember(const QByteArray &geometry, const QByteArray &columns);

private:
    QByteArray bytes(const QString &key) const;

    UserDefaults defaults_;
};

} // namespace fennick
