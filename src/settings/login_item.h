#pragma once

#include <QObject>

namespace fennick {

class SettingsStore;

// Registers the program to be started at login, or undoes it. Returns whether the wanted state holds now;
// nothing is done when it already does.
[[nodiscard]] bool setLaunchAtLogin(bool enabled);

// Keeps the registration in line with the preference: follows its changes, but not its initial value. Owned
// by the application; main thread.
class LoginItem : public QObject {
    Q_OBJECT

public:
    explicit LoginItem(SettingsStore *settings);

private:
    void followPreference();

    SettingsStore *settings_;
    bool isWanted_;
};

} // namespace fennick
