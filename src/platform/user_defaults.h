#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

namespace fennick {

// The program's part of the user's preferences: typed values (texts and booleans) under plain keys. A value
// that the user has not set falls back to the system-wide file of the same name. Main thread only.
class UserDefaults {
public:
    // The file "Fennick" for the preferences, or another one for what is remembered apart from them.
    UserDefaults();
    explicit UserDefaults(const QString &name);

    // The text or boolean under `key`, or an invalid value.
    QVariant object(const QString &key) const;

    // Absent if the key is absent or holds a boolean.
    [[nodiscard]] std::optional<QString> string(const QString &key) const;

    // False if the key is absent; the texts "YES", "true", "1" and their like count as true.
    bool boolean(const QString &key) const;

    // The change is on the disk when these return.
    void set(const QString &key, const QString &value);
    void set(const QString &key, bool value);
    void remove(const QString &key);

private:
    QSettings settings_;
};

} // namespace fennick
