#include "platform/single_instance.h"
#include "support/private_session.h"
#include "support/temporary_home.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QSignalSpy>
#include <QTest>

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
        QTRY_COMPARE(activations.size(), 1);
    }

private:
    test::TemporaryHome home_;
    test::PrivateSession session_;
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "single_instance_test.moc"
