#pragma once

#include "accessible.h"
#include "user_session.h"
#include "virtual_desktop.h"

namespace fennick::test {

// What the tests of this folder run in: a user's session, a desktop in it and the accessibility bus.
struct DesktopSurroundings {
    static QStringList missingPrograms() {
        QStringList missing = VirtualDesktop::missingPrograms();
        if (!AccessibilityBus::isInstalled()) {
            missing.append(QStringLiteral("at-spi2-core"));
        }
        return missing;
    }

    UserSession session;
    VirtualDesktop desktop{session.home.path(QStringLiteral("desktop"))};
    AccessibilityBus accessibility;
};

} // namespace fennick::test
