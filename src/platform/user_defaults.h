#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

namespace fennick {

// The program's part of the user's preferences: typed values (texts and booleans) under plain keys. A value
// that the user has not set falls back to the system-wide file of the same name. Owned by whoever creates it;
// main thread only.
class UserDefaults {
public:
    // The file "Fennick" for the preferences, or another one for what is remembered apart from them.
    UserDefaults();
    explicit UserDefaults(const QString &name);

    // The text or boolean under `key`, or an invalid value.
    QVariant object(const QString &key) const;

    // Nothing when the key is absent or holds a boolean.
    [[nodiscard]] std::optional<QString> string(const QString &key) const;

    // False when the key is absent; a text counts as the platforms' boolean texts do ("YES", "true", "1").
    bool boolean(const QString &key) const;

    // These are on disk when they return.
    void set(const QString &key, const QString &value);
    void set(const QString &key, bool value);
    void remove(const QString &key);

private:
    QSettings settings_;
};

} // namespace fennick
