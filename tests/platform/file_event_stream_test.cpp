#include "platform/file_event_stream.h"
#include "platform/tree_listing_linux.h"
#include "support/conditions.h"
#include "support/private_namespace.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QTemporaryDir>

#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace std::chrono_literals;

namespace {

PrivateNamespace allowed;

const QString watchLimit = QStringLiteral("/proc/sys/user/max_inotify_watches");
const QString instanceLimit = QStringLiteral("/proc/sys/user/max_inotify_instances");

// Changes one of the user's limits for as long as it lives.
class Limit {
public:
    Limit(const QString &file, const QByteArray &value)
        : file_(file)
        , usual_(readFile(file)) {
        writeFile(file_, value);
    }
    ~Limit() { writeFile(file_, usual_); }

private:
    QString file_;
    QByteArray usual_;
};

} // namespace

// Folders whose changes the system does not tell as it usually does.
class FileEventStreamTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        paths_.clear();
    }
    void cleanup() { stream_.reset(); }

    void foldersBeyondTheUsersWatchesAreListed() {
        if (!allowed.canLimitWatches) {
            QSKIP("Limits cannot be set here.");
        }
        for (const char *const name : {"a", "b", "c", "d"}) {
            QDir(folder_->path()).mkdir(QString::fromUtf8(name));
        }
        const Limit limit(watchLimit, "2"); // the folder itself and one below it
        start();
        for (const QString &name : {QStringLiteral("a/1.pdf"), QStringLiteral("b/2.pdf"),
                                    QStringLiteral("c/3.pdf"), QStringLiteral("d/4.pdf")}) {
            writeFile(folder_->filePath(name), "x");
            QVERIFY2(waitFor(name), qPrintable(name));
        }
        QVERIFY(QFile::link(QStringLiteral("/nowhere"), folder_->filePath(QStringLiteral("d/link.pdf"))));
        QVERIFY(waitFor(QStringLiteral("d/link.pdf")));
    }

    void withoutAnyWatchTheFolderIsListed() {
        if (!allowed.canLimitWatches) {
            QSKIP("Limits cannot be set here.");
        }
        {
            const Limit limit(instanceLimit, "0");
            start();
            writeFile(folder_->filePath(QStringLiteral("1.pdf")), "x");
            QVERIFY(waitFor(QStringLiteral("1.pdf")));
            writeFile(folder_->filePath(QStringLiteral("1.pdf")), "changed");
            QVERIFY(waitFor(QStringLiteral("1.pdf")));
        }
        writeFile(folder_->filePath(QStringLiteral("2.pdf")), "x"); // when there are watches again
        QVERIFY(waitFor(QStringLiteral("2.pdf")));
    }

    void fileSystemMountedOverTheFolderIsTold() {
        if (!allowed.canMount) {
            QSKIP("Nothing can be mounted here.");
        }
        start();
        writeFile(folder_->filePath(QStringLiteral("below.pdf")), "x");
        QVERIFY(waitFor(QStringLiteral("below.pdf")));
        QVERIFY(mountSmallFileSystem(folder_->path(), 64));
        writeFile(folder_->filePath(QStringLiteral("mounted.pdf")), "x");
        QVERIFY(waitFor(QStringLiteral("mounted.pdf")));
        QVERIFY(unmount(folder_->path()));
        QVERIFY(waitFor(QStringLiteral("below.pdf"))); // which lies in the folder again
        writeFile(folder_->filePath(QStringLiteral("later.pdf")), "x");
        QVERIFY(waitFor(QStringLiteral("later.pdf")));
    }

    void fileSystemMountedOnASubFolderIsTold() {
        if (!allowed.canMount) {
            QSKIP("Nothing can be mounted here.");
        }
        const QString sub = folder_->filePath(QStringLiteral("sub"));
        QDir().mkpath(sub);
        start();
        QVERIFY(mountSmallFileSystem(sub, 64));
        writeFile(sub + QStringLiteral("/mounted.pdf"), "x");
        QVERIFY(waitFor(QStringLiteral("sub/mounted.pdf")));
        QVERIFY(unmount(sub));
        writeFile(sub + QStringLiteral("/below.pdf"), "x");
        QVERIFY(waitFor(QStringLiteral("sub/below.pdf")));
    }

    void listingTellsNewAndChangedFilesOnce() {
        TreeListing listing(folder_->path().toStdString());
        QCOMPARE(refreshed(listing), QStringList());
        writeFile(folder_->filePath(QStringLiteral("a/1.pdf")), "x");
        writeFile(folder_->filePath(QStringLiteral("2.pdf")), "x");
        QFile::link(folder_->path(), folder_->filePath(QStringLiteral("a/loop")));
        QCOMPARE(refreshed(listing),
                 (QStringList{QStringLiteral("2.pdf"), QStringLiteral("a/1.pdf"), QStringLiteral("a/loop")}));
        QCOMPARE(refreshed(listing), QStringList());
        writeFile(folder_->filePath(QStringLiteral("2.pdf")), "longer");
        QCOMPARE(refreshed(listing), QStringList{QStringLiteral("2.pdf")});
        QFile::remove(folder_->filePath(QStringLiteral("2.pdf")));
        QCOMPARE(refreshed(listing), QStringList());
    }

    void ordinaryFoldersAreNotRemote() { QVERIFY(!isOnRemoteFileSystem(folder_->path().toStdString())); }

private:
    void start() {
        stream_ = FileEventStream::create(folder_->path(), 50ms, 200ms, QStringLiteral("test"),
                                          [this](const QList<FileEvent> &events) {
                                              const QMutexLocker lock(&mutex_);
                                              for (const FileEvent &event : events) {
                                                  paths_.insert(event.path);
                                              }
                                          });
        stream_->watching().waitForFinished();
    }

    // Waits until the path has been told, and forgets that it was.
    bool waitFor(const QString &name) {
        const QString path = folder_->filePath(name);
        const bool isTold = waitUntil([&] {
            const QMutexLocker lock(&mutex_);
            return paths_.contains(path);
        });
        const QMutexLocker lock(&mutex_);
        paths_.remove(path);
        return isTold;
    }

    QStringList refreshed(TreeListing &listing) const {
        QList<QByteArray> paths;
        listing.refresh(paths);
        QStringList names;
        for (const QByteArray &path : std::as_const(paths)) {
            names.append(QDir(folder_->path()).relativeFilePath(QFile::decodeName(path)));
        }
        names.sort();
        return names;
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<FileEventStream> stream_;
    QMutex mutex_;
    QSet<QString> paths_;
};

int file_event_stream_test(int argc, char **argv) {
    allowed = enterPrivateNamespace();
    return runTest<QCoreApplication, FileEventStreamTest>(argc, argv);
}
#include "file_event_stream_test.moc"
