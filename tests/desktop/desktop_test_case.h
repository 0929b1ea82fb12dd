#pragma once

#include "accessible.h"
#include "desktop_user.h"
#include "user_session.h"
#include "virtual_desktop.h"

#include <QObject>
#include <QTest>

#include <memory>

namespace fennick::test {

// A test of the built program on a real desktop: a user's session, a desktop in it, the accessibility bus and
// a person who uses all that. They are made once for all functions of the test, which are skipped where
// something is not installed.
class DesktopTestCase : public QObject {
    Q_OBJECT

protected:
    UserSession &session() const { return surroundings_->session; }
    VirtualDesktop &desktop() const { return surroundings_->desktop; }
    AccessibilityBus &accessibility() const { return surroundings_->accessibility; }
    DesktopUser &user() const { return surroundings_->user; }

    // Programs that the test needs and that are not installed.
    virtual QStringList missingPrograms() const { return {}; }

    // Another reason why the test cannot run here; empty if there is none.
    virtual QByteArray reasonToSkip() const { return {}; }

    // Makes what a test needs besides, before its first function. QVERIFY may fail in it.
    virtual void prepare() {}

    // Removes that again.
    virtual void putAway() {}

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

private:
    struct Surroundings {
        UserSession session;
        VirtualDesktop desktop{session.home.path(QString::fromLatin1("desktop"))};
        AccessibilityBus accessibility;
        DesktopUser user{&accessibility, [this](const std::function<bool()> &condition) {
                             return session.waitFor(condition);
                         }};
    };

    std::unique_ptr<Surroundings> surroundings_;
};

} // namespace fennick::test
