#pragma once

#include "accessible.h"
#include "user_session.h"
#include "virtual_desktop.h"

namespace fennick::test {

using namespace Qt::StringLiterals;

// What the tests of this folder run in: a user's session, a desktop in it and the accessibility bus.
struct DesktopSurroundings {
    static QStringList missingPrograms() {
        QStringList missing = VirtualDesktop::missingPrograms();
        if (!AccessibilityBus::isInstalled()) {
            missing.append(u"at-spi2-core"_s);
        }
        return missing;
    }

    UserSession session;
    VirtualDesktop desktop{session.home.path(u"desktop"_s)};
    AccessibilityBus accessibility;
};

} // namespace fennick::test
