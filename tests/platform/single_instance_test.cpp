#include "platform/single_instance.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QSignalSpy>

using namespace fennick;

class SingleInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstStartClaimsTheNameAndShowsItselfOnActivate() {
        SingleInstance instance;
        QSignalSpy activations(&instance, &SingleInstance::activationRequested);
        QVERIFY(instance.claim());
        QDBusMessage activate = QDBusMessage::createMethodCall(
            QStringLiteral("org.fennick.Fennick"), QStringLiteral("/org/fennick/Fennick"),
            QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
        activate.setArguments({QVariantMap()});
        QDBusConnection other =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("other"));
        other.asyncCall(activate);
        fennick::test::waitUntil([&] { return activations.size() == 1; });
        QCOMPARE(activations.size(), 1);
    }

private:
    test::TemporaryHome home_;
    test::PrivateSession session_;
};

int single_instance_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, SingleInstanceTest>(argc, argv);
}
#include "single_instance_test.moc"
