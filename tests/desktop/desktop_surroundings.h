#pragma once

#include "accessible.h"
#include "user_session.h"
#include "virtual_desktop.h"

namespace fennick::test {

using namespace Qt::StringLiterals;

// What the tests of this folder run in: a user's session, a desktop in it and the accessibility bus.
struct DesktopSurroundings {
    // Why the tests cannot run here; empty if they can. `missing` are programs that a test needs besides.
    static QByteArray reasonToSkip(QStringList missing = {}) {
        missing = VirtualDesktop::missingPrograms() + missing;
        if (!AccessibilityBus::isInstalled()) {
            missing.append(u"at-spi2-core"_s);
        }
        return missing.isEmpty() ? QByteArray() : "Not installed: " + missing.join(u", "_s).toUtf8();
    }

    UserSession session;
    VirtualDesktop desktop{session.home.path(u"desktop"_s)};
    AccessibilityBus accessibility;
};

} // namespace fennick::test
