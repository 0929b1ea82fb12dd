#include "settings/preferences.h"

#include "platform/user_defaults.h"

namespace fennick::Preferences {

std::optional<QString> read(const UserDefaults &defaults,
                            const Preference<std::optional<QString>> &preference) {
    const auto stored = defaults.string(preference.key);
    return stored ? stored : preference.standard;
}

QString read(const UserDefaults &defaults, const Preference<QString> &preference) {
    return defaults.string(preference.key).value_or(preference.standard);
}

bool read(const UserDefaults &defaults, const Preference<bool> &preference) {
    if (!preference.standard) {
        return defaults.boolean(preference.key);
    }
    const QVariant value = defaults.object(preference.key);
    return value.typeId() == QMetaType::Bool ? value.toBool() : preference.standard;
}

void write(UserDefaults &defaults, const QString &key, const std::optional<QString> &value) {
    if (value) {
        defaults.set(key, *value);
    } else {
        defaults.remove(key);
    }
}

void write(UserDefaults &defaults, const QString &key, const QString &value) {
    defaults.set(key, value);
}

void write(UserDefaults &defaults, const QString &key, bool value) {
    defaults.set(key, value);
}

} // namespace fennick::Preferences
