#include "platform/single_instance.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>
#include <QSignalSpy>
#include <QThread>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

const QString applicationName = u"org.fennick.Fennick"_s;

// Leaves the bus as soon as it is spoken to, without an answer.
class LeavingProgram : public QDBusVirtualObject {
public:
    bool takeName() {
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"leaving"_s);
        return bus.registerVirtualObject(u"/org/fennick/Fennick"_s, this) &&
               bus.registerService(applicationName);
    }
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &, const QDBusConnection &bus) override {
        QDBusConnection::disconnectFromBus(bus.name());
        return true;
    }
};

// A thread that runs an event loop, with an object on it.
class ServingThread {
public:
    explicit ServingThread(QObject &object) {
        object.moveToThread(&thread_);
        thread_.start();
    }
    ~ServingThread() {
        thread_.quit();
        thread_.wait();
    }

private:
    QThread thread_;
};

} // namespace

class SingleInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QDBusConnection::sessionBus().unregisterService(applicationName); }

    void firstStartClaimsTheNameAndShowsItselfOnActivate() {
        SingleInstance instance;
        QSignalSpy activations(&instance, &SingleInstance::activationRequested);
        QVERIFY(instance.claim());
        QDBusMessage activate = QDBusMessage::createMethodCall(
            applicationName, u"/org/fennick/Fennick"_s, u"org.freedesktop.Application"_s, u"Activate"_s);
        activate.setArguments({QVariantMap()});
        QDBusConnection other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
        other.asyncCall(activate);
        fennick::test::waitUntil([&] { return activations.size() == 1; });
        QCOMPARE(activations.size(), 1);
    }

    void nameOfAProgramThatHasJustEndedIsTakenOver() {
        LeavingProgram ended;
        const ServingThread thread(ended);
        QVERIFY(ended.takeName());
        SingleInstance instance;
        QVERIFY(instance.claim());
        QVERIFY(QDBusConnection::sessionBus().interface()->isServiceRegistered(applicationName));
    }

private:
    test::TemporaryHome home_;
    test::PrivateSession session_;
};

int single_instance_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, SingleInstanceTest>(argc, argv);
}
#include "single_instance_test.moc"
