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
using namespace Qt::StringLiterals;

namespace {

PrivateNamespace allowed;

const QString watchLimit = u"/proc/sys/user/max_inotify_watches"_s;
const QString instanceLimit = u"/proc/sys/user/max_inotify_instances"_s;

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
        for (const QString &name : {u"a/1.pdf"_s, u"b/2.pdf"_s, u"c/3.pdf"_s, u"d/4.pdf"_s}) {
            writeFile(folder_->filePath(name), "x");
            QVERIFY2(waitFor(name), qPrintable(name));
        }
        QVERIFY(QFile::link(u"/nowhere"_s, folder_->filePath(u"d/link.pdf"_s)));
        QVERIFY(waitFor(u"d/link.pdf"_s));
    }

    void withoutAnyWatchTheFolderIsListed() {
        if (!allowed.canLimitWatches) {
            QSKIP("Limits cannot be set here.");
        }
        {
            const Limit limit(instanceLimit, "0");
            start();
            writeFile(folder_->filePath(u"1.pdf"_s), "x");
            QVERIFY(waitFor(u"1.pdf"_s));
            writeFile(folder_->filePath(u"1.pdf"_s), "changed");
            QVERIFY(waitFor(u"1.pdf"_s));
        }
        writeFile(folder_->filePath(u"2.pdf"_s), "x"); // when there are watches again
        QVERIFY(waitFor(u"2.pdf"_s));
    }

    void fileSystemMountedOverTheFolderIsTold() {
        if (!allowed.canMount) {
            QSKIP("Nothing can be mounted here.");
        }
        start();
        writeFile(folder_->filePath(u"below.pdf"_s), "x");
        QVERIFY(waitFor(u"below.pdf"_s));
        QVERIFY(mountSmallFileSystem(folder_->path(), 64));
        writeFile(folder_->filePath(u"mounted.pdf"_s), "x");
        QVERIFY(waitFor(u"mounted.pdf"_s));
        QVERIFY(unmount(folder_->path()));
        QVERIFY(waitFor(u"below.pdf"_s)); // which lies in the folder again
        writeFile(folder_->filePath(u"later.pdf"_s), "x");
        QVERIFY(waitFor(u"later.pdf"_s));
    }

    void fileSystemMountedOnASubFolderIsTold() {
        if (!allowed.canMount) {
            QSKIP("Nothing can be mounted here.");
        }
        const QString sub = folder_->filePath(u"sub"_s);
        QDir().mkpath(sub);
        start();
        QVERIFY(mountSmallFileSystem(sub, 64));
        writeFile(sub + u"/mounted.pdf"_s, "x");
        QVERIFY(waitFor(u"sub/mounted.pdf"_s));
        QVERIFY(unmount(sub));
        writeFile(sub + u"/below.pdf"_s, "x");
        QVERIFY(waitFor(u"sub/below.pdf"_s));
    }

    void listingTellsNewAndChangedFilesOnce() {
        TreeListing listing(folder_->path().toStdString());
        QCOMPARE(refreshed(listing), QStringList());
        writeFile(folder_->filePath(u"a/1.pdf"_s), "x");
        writeFile(folder_->filePath(u"2.pdf"_s), "x");
        QFile::link(folder_->path(), folder_->filePath(u"a/loop"_s));
        QCOMPARE(refreshed(listing), (QStringList{u"2.pdf"_s, u"a/1.pdf"_s, u"a/loop"_s}));
        QCOMPARE(refreshed(listing), QStringList());
        writeFile(folder_->filePath(u"2.pdf"_s), "longer");
        QCOMPARE(refreshed(listing), QStringList{u"2.pdf"_s});
        QFile::remove(folder_->filePath(u"2.pdf"_s));
        QCOMPARE(refreshed(listing), QStringList());
    }

    void ordinaryFoldersAreNotRemote() { QVERIFY(!isOnRemoteFileSystem(folder_->path().toStdString())); }

private:
    void start() {
        stream_ = FileEventStream::create(folder_->path(), 50ms, 200ms, u"test"_s,
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
