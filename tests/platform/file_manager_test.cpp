#include "platform/file_manager.h"
#include "support/conditions.h"
#include "support/private_session.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDBusConnection>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

// A file manager as programs see it on the session bus.
class ListeningFileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList &addresses, const QString &) { // the interface's own name
        shown = addresses;
    }
};

class FileManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void revealSelectsTheFileInTheFileManager() {
        ListeningFileManager fileManager;
        QDBusConnection peer = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"file manager"_s);
        QVERIFY(peer.registerObject(u"/org/freedesktop/FileManager1"_s, &fileManager,
                                    QDBusConnection::ExportAllSlots));
        QVERIFY(peer.registerService(u"org.freedesktop.FileManager1"_s));
        FileManager::reveal(u"/home/me/Receipts/50% off #1 ü.pdf"_s);
        QVERIFY(waitUntil([&fileManager] { return !fileManager.shown.isEmpty(); }));
        QCOMPARE(fileManager.shown,
                 QStringList(u"file:///home/me/Receipts/50%25%20off%20%231%20%C3%BC.pdf"_s));
        QDBusConnection::disconnectFromBus(u"file manager"_s);
    }

private:
    TemporaryHome home_;
    PrivateSession session_;
};

int file_manager_test(int argc, char **argv) {
    return runTest<QCoreApplication, FileManagerTest>(argc, argv);
}
#include "file_manager_test.moc"
