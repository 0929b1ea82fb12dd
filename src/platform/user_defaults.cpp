#include "platform/user_defaults.h"

#include "platform/preferences_format.h"

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

// A text as a boolean: after white space, a sign and zeros, one of Y, T or a digit other than zero is true.
bool booleanFromText(const QString &text) {
    const QString trimmed = text.trimmed();
    qsizetype index = trimmed.startsWith(u'+') || trimmed.startsWith(u'-') ? 1 : 0;
    while (index < trimmed.size() && trimmed[index] == u'0') {
        ++index;
    }
    return index < trimmed.size() && QStringView(u"YyTt123456789").contains(trimmed[index]);
}

} // namespace

UserDefaults::UserDefaults()
    : UserDefaults(u"Fennick"_s) {}

UserDefaults::UserDefaults(const QString &name)
    : settings_(preferencesFormat(), QSettings::UserScope, u"Fennick"_s, name) {}

QVariant UserDefaults::object(const QString &key) const {
    return settings_.value(key);
}

std::optional<QString> UserDefaults::string(const QString &key) const {
    const QVariant value = object(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

bool UserDefaults::boolean(const QString &key) const {
    const QVariant value = object(key);
    return value.typeId() == QMetaType::QString ? booleanFromText(value.toString()) : value.toBool();
}

void UserDefaults::set(const QString &key, const QString &value) {
    settings_.setValue(key, value);
    settings_.sync();
}

void UserDefaults::set(const QString &key, bool value) {
    settings_.setValue(key, value);
    settings_.sync();
}

void UserDefaults::remove(const QString &key) {
    settings_.remove(key);
    settings_.sync();
}

} // namespace fennick
