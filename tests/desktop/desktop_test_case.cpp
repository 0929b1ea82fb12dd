#include "desktop_test_case.h"

namespace fennick::test {

using namespace Qt::StringLiterals;

void DesktopTestCase::initTestCase() {
    QStringList missing = VirtualDesktop::missingPrograms() + missingPrograms();
    if (!AccessibilityBus::isInstalled()) {
        missing.append(u"at-spi2-core"_s);
    }
    if (!missing.isEmpty()) {
        QSKIP(("Not installed: " + missing.join(u", "_s).toUtf8()).constData());
    }
    if (const QByteArray reason = reasonToSkip(); !reason.isEmpty()) {
        QSKIP(reason.constData());
    }
    surroundings_ = std::make_unique<Surroundings>();
    prepare();
}

void DesktopTestCase::cleanupTestCase() {
    putAway();
    surroundings_.reset();
}

} // namespace fennick::test
