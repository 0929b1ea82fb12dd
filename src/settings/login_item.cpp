#include "settings/login_item.h"

#include "platform/login_service.h"

namespace fennick {

bool setLaunchAtLogin(bool enabled) {
    const bool isEnabled = LoginService::status() == LoginService::Status::enabled;
    if (enabled == isEnabled) {
        return true;
    }
    return enabled ? LoginService::registerApplication() : LoginService::unregisterApplication();
}

} // namespace fennick
