#include "platform/file_system_roots.h"
#include "support/private_namespace.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;

namespace {

bool canMountDisks = false;

} // namespace

class FileSystemRootsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rootOfAllHoldsOne() { QVERIFY(holdsFileSystemRoot(u"/"_s)); }

    void ordinaryFolderHoldsNone() {
        const QTemporaryDir folder;
        QVERIFY(!holdsFileSystemRoot(folder.path()));
        QVERIFY(!holdsFileSystemRoot(folder.filePath(u"missing"_s)));
    }

    void mountedDiskAndTheFoldersAboveItHoldOne() {
        if (!canMountDisks) {
            QSKIP("Nothing can be mounted here.");
        }
        const QTemporaryDir folder;
        const QString disk = folder.filePath(u"media/my disk"_s);
        QDir().mkpath(disk + u"-beside"_s);
        QDir().mkpath(disk);
        QFile::link(disk, folder.filePath(u"link"_s));
        QVERIFY(mountSmallFileSystem(disk, 64));
        QDir().mkpath(disk + u"/below"_s);
        QVERIFY(holdsFileSystemRoot(disk));
        QVERIFY(holdsFileSystemRoot(folder.path()));
        QVERIFY(holdsFileSystemRoot(folder.filePath(u"link"_s)));
        QVERIFY(!holdsFileSystemRoot(disk + u"/below"_s));
        QVERIFY(!holdsFileSystemRoot(disk + u"-beside"_s));
        unmount(disk);
    }
};

int file_system_roots_test(int argc, char **argv) {
    canMountDisks = enterPrivateNamespace().canMount;
    return runTest<QCoreApplication, FileSystemRootsTest>(argc, argv);
}
#include "file_system_roots_test.moc"
