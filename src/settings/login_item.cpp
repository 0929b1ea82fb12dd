#include "settings/login_item.h"

#include "platform/login_service.h"
#include "settings/settings_store.h"

#include <tuple>
#include <utility>

namespace fennick {

bool setLaunchAtLogin(bool enabled) {
    const bool isEnabled = LoginService::status() == LoginService::Status::enabled;
    if (enabled == isEnabled) {
        return true;
    }
    return enabled ? LoginService::registerApplication() : LoginService::unregisterApplication();
}

LoginItem::LoginItem(SettingsStore *settings)
    : settings_(settings)
    , isWanted_(settings->openAtLogin()) {
    connect(settings, &SettingsStore::changed, this, &LoginItem::followPreference);
}

void LoginItem::followPreference() {
    const bool isWanted = settings_->openAtLogin();
    if (std::exchange(isWanted_, isWanted) != isWanted) {
        // A failure is not examined: the preference stays as the user has set it.
        std::ignore = setLaunchAtLogin(isWanted);
    }
}

} // namespace fennick
