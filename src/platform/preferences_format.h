#pragma once

#include <QIODevice>
#include <QSettings>

namespace fennick {

// An INI file in which a bare `true` or `false` is a boolean and everything else is a text: QSettings' own
// formats cannot distinguish the two and turn a text with commas into a list. Quoted text and the escapes
// that QSettings writes are accepted.
[[nodiscard]] bool readPreferences(QIODevice &device, QSettings::SettingsMap &map);
[[nodiscard]] bool writePreferences(QIODevice &device, const QSettings::SettingsMap &map);

// The format as QSettings knows it; files get the extension "conf".
QSettings::Format preferencesFormat();

} // namespace fennick
