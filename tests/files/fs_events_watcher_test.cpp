#include "files/fs_events_watcher.h"
#include "support/conditions.h"
#include "support/temporary_home.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QMutex>
#include <QTemporaryDir>
#include <QThread>

#include <fcntl.h>

#include <algorithm>
#include <cstdio>
#include <memory>

using namespace fennick;
using namespace fennick::test;
using namespace Qt::StringLiterals;
using Clock = std::chrono::steady_clock;
using std::chrono::duration_cast;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds latency{300};

struct Batch {
    QStringList paths;
    Clock::time_point at;
    QString threadName;
};

// What a watcher has told so far; filled on its thread.
class Log {
public:
    void append(const QList<FileEvent> &events) {
        QStringList paths;
        for (const FileEvent &event : events) {
            paths.append(event.path);
        }
        const QMutexLocker lock(&mutex_);
        batches_.append({paths, Clock::now(), QThread::currentThread()->objectName()});
    }

    QList<Batch> batches() const {
        const QMutexLocker lock(&mutex_);
        return batches_;
    }

    QSet<QString> paths() const {
        QSet<QString> paths;
        for (const Batch &batch : batches()) {
            paths.unite(QSet<QString>(batch.paths.begin(), batch.paths.end()));
        }
        return paths;
    }

private:
    mutable QMutex mutex_;
    QList<Batch> batches_;
};

} // namespace

class FsEventsWatcherTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        root_ = folder_->filePath(u"watched"_s);
        QDir().mkpath(root_);
        log_ = std::make_unique<Log>();
    }

    void cleanup() { watcher_.reset(); }

    void filesThatLieThereAlreadyAreNotTold() {
        write("old.pdf");
        write("sub/old.pdf");
        start();
        write("new.pdf");
        QVERIFY(waitUntil([&] { return isTold("new.pdf"); }));
        letTimePass(400); // one more batch would be due
        QVERIFY(!isTold("old.pdf"));
        QVERIFY(!isTold("sub/old.pdf"));
    }

    void nothingIsToldBeforeStart() {
        create();
        write("early.pdf");
        watcher_->start().waitForFinished();
        write("late.pdf");
        QVERIFY(waitUntil([&] { return isTold("late.pdf"); }));
        letTimePass(400);
        QVERIFY(!isTold("early.pdf"));
    }

    void everyKindOfChangeIsTold() {
        write("a.pdf");
        write("b.pdf");
        write("c.pdf");
        start();
        write("a.pdf");
        QFile::rename(path("b.pdf"), path("d.pdf"));
        QFile::remove(path("c.pdf"));
        QVERIFY(waitUntil(
            [&] { return isTold("a.pdf") && isTold("b.pdf") && isTold("c.pdf") && isTold("d.pdf"); }));
    }

    void withoutAChangeNoBatchIsTold() {
        write("a.pdf");
        start();
        QCOMPARE(readFile(path("a.pdf")), "content");
        QDir(root_).entryList();
        letTimePass(400);
        QVERIFY(log_->batches().isEmpty());
    }

    void changesInExistingSubFoldersAreTold() {
        QDir().mkpath(path("one/two/three"));
        start();
        write("one/two/three/a.pdf");
        QVERIFY(waitUntil([&] { return isTold("one/two/three/a.pdf"); }));
    }

    void filesOfANewFolderAreToldHoweverFastTheyCame() {
        start();
        QSet<QString> written;
        for (int folder = 0; folder < 60; ++folder) {
            const QByteArray name = "f" + QByteArray::number(folder) + "/deep/er/a.pdf";
            write(name.constData());
            written.insert(path(name.constData()));
        }
        QVERIFY(waitUntil([&] { return log_->paths().contains(written); }));
    }

    void filesOfAMovedInTreeAreTold() {
        const QString outside = folder_->filePath(u"outside"_s);
        QSet<QString> expected;
        for (int index = 0; index < 40; ++index) {
            const QString name = u"/sub%1/a.pdf"_s.arg(index);
            writeFile(outside + name, "x");
            expected.insert(root_ + u"/moved"_s + name);
        }
        start();
        QVERIFY(QDir().rename(outside, path("moved")));
        QVERIFY(waitUntil([&] { return log_->paths().contains(expected); }));
        write("moved/sub7/later.pdf");
        QVERIFY(waitUntil([&] { return isTold("moved/sub7/later.pdf"); }));
    }

    void folderMovedOutIsNoLongerWatched() {
        QDir().mkpath(path("sub/deep"));
        start();
        const QString outside = folder_->filePath(u"outside"_s);
        QVERIFY(QDir().rename(path("sub"), outside));
        QVERIFY(waitUntil([&] { return isTold("sub"); }));
        const qsizetype before = log_->paths().size();
        writeFile(outside + u"/deep/a.pdf"_s, "x");
        write("marker.pdf");
        QVERIFY(waitUntil([&] { return isTold("marker.pdf"); }));
        QCOMPARE(log_->paths().size(), before + 1);
    }

    void folderRenamedInsideIsToldUnderItsNewName() {
        QDir().mkpath(path("before/deep"));
        start();
        QVERIFY(QDir().rename(path("before"), path("after")));
        QVERIFY(waitUntil([&] { return isTold("after"); }));
        write("after/deep/a.pdf");
        QVERIFY(waitUntil([&] { return isTold("after/deep/a.pdf"); }));
        QVERIFY(!isTold("before/deep/a.pdf"));
    }

    void foldersThatChangePlacesAreWatchedUnderTheirNewNames() {
        QDir().mkpath(path("one/deep"));
        QDir().mkpath(path("two/other"));
        start();
        QCOMPARE(::renameat2(AT_FDCWD, QFile::encodeName(path("one")).constData(), AT_FDCWD,
                             QFile::encodeName(path("two")).constData(), RENAME_EXCHANGE),
                 0);
        write("one/other/a.pdf");
        write("two/deep/b.pdf");
        QVERIFY(waitUntil([&] { return isTold("one/other/a.pdf") && isTold("two/deep/b.pdf"); }));
        write("one/c.pdf"); // also when the exchange is long over
        write("two/d.pdf");
        QVERIFY(waitUntil([&] { return isTold("one/c.pdf") && isTold("two/d.pdf"); }));
        QVERIFY(!isTold("one/deep/b.pdf"));
        QVERIFY(!isTold("two/other/a.pdf"));
    }

    void folderAboveThatIsMovedAndMadeAgainIsNoticed() {
        root_ = folder_->filePath(u"above/between/watched"_s);
        QDir().mkpath(root_);
        start();
        QVERIFY(QDir().rename(folder_->filePath(u"above"_s), folder_->filePath(u"elsewhere"_s)));
        write("a.pdf");
        QVERIFY(waitUntil([&] { return isTold("a.pdf"); }));
        write("sub/b.pdf");
        QVERIFY(waitUntil([&] { return isTold("sub/b.pdf"); }));
    }

    void linkThatLeadsElsewhereIsNoticed_data() {
        QTest::addColumn<bool>("isRelative");
        QTest::newRow("absolute") << false;
        QTest::newRow("relative") << true;
    }
    void linkThatLeadsElsewhereIsNoticed() {
        QFETCH(bool, isRelative);
        for (const char *const name : {"first/watched", "second/watched"}) {
            QDir().mkpath(folder_->filePath(QString::fromLatin1(name)));
        }
        const QString link = folder_->filePath(u"current"_s);
        const QString prefix = isRelative ? QString() : folder_->path() + u'/';
        QVERIFY(QFile::link(prefix + u"first"_s, link));
        root_ = link + u"/watched"_s;
        start();
        write("before.pdf");
        QVERIFY(waitUntil([&] { return isTold("before.pdf"); }));
        QVERIFY(QFile::link(prefix + u"second"_s, link + u".new"_s));
        QCOMPARE(
            std::rename(QFile::encodeName(link + u".new"_s).constData(), QFile::encodeName(link).constData()),
            0);
        writeFile(folder_->filePath(u"second/watched/after.pdf"_s), "x");
        QVERIFY(waitUntil([&] { return isTold("after.pdf"); }));
        write("later.pdf");
        QVERIFY(waitUntil([&] { return isTold("later.pdf"); }));
    }

    void rootThatIsRemovedAndMadeAgainIsWatchedAgain() {
        write("sub/a.pdf");
        start();
        QVERIFY(QDir(root_).removeRecursively());
        write("sub/b.pdf");
        QVERIFY(waitUntil([&] { return isTold("sub/b.pdf"); }));
        write("sub/c.pdf");
        QVERIFY(waitUntil([&] { return isTold("sub/c.pdf"); }));
    }

    void rootThatIsMovedAwayAndMadeAgainIsWatchedAgain() {
        QDir().mkpath(path("sub"));
        start();
        const QString elsewhere = folder_->filePath(u"elsewhere"_s);
        QVERIFY(QDir().rename(root_, elsewhere));
        write("a.pdf");
        QVERIFY(waitUntil([&] { return isTold("a.pdf"); }));
        const qsizetype before = log_->paths().size();
        writeFile(elsewhere + u"/sub/strange.pdf"_s, "x");
        write("marker.pdf");
        QVERIFY(waitUntil([&] { return isTold("marker.pdf"); }));
        QCOMPARE(log_->paths().size(), before + 1);
    }

    void rootThatIsMissingAtTheStartIsWaitedFor() {
        QVERIFY(QDir(root_).removeRecursively());
        start();
        write("a.pdf");
        QVERIFY(waitUntil([&] { return isTold("a.pdf"); }));
    }

    // Were it held back for the latency, it would never come sooner. On a busy machine it may come late as
    // well.
    void firstEventAfterQuietIsToldAtOnce() {
        start();
        milliseconds soonest = milliseconds::max();
        for (int attempt = 0; attempt < 20 && soonest >= latency; ++attempt) {
            letTimePass(2 * latency.count());
            const QByteArray name = QByteArray::number(attempt) + ".pdf";
            const auto before = Clock::now();
            write(name.constData());
            QVERIFY(waitUntil([&] { return isTold(name.constData()); }));
            soonest = std::min(soonest, duration_cast<milliseconds>(log_->batches().last().at - before));
        }
        QVERIFY(soonest < latency);
    }

    void furtherEventsComeInBatchesOfTheLatency() {
        start();
        const auto before = Clock::now();
        for (int index = 0; index < 20; ++index) {
            write(("a" + QByteArray::number(index) + ".pdf").constData());
            letTimePass(50);
        }
        QVERIFY(waitUntil([&] { return isTold("a19.pdf"); }));
        const QList<Batch> batches = log_->batches();
        // One at once, and one for each latency since.
        QVERIFY(batches.size() <= 1 + (batches.last().at - before) / latency + 1);
    }

    void startingTwiceTellsEveryEventOnce() {
        start();
        watcher_->start().waitForFinished();
        QDir().mkpath(path("folder")); // one event, unlike a file's several
        QVERIFY(waitUntil([&] { return isTold("folder"); }));
        letTimePass(400);
        QCOMPARE(log_->batches().size(), 1);
        QCOMPARE(log_->batches().first().paths, QStringList{path("folder")});
    }

    void nothingIsToldAfterTheWatcherIsGone() {
        start();
        watcher_.reset();
        write("a.pdf");
        letTimePass(400);
        QVERIFY(log_->batches().isEmpty());
    }

    void batchesComeOnAThreadNamedAfterTheProgram() {
        start();
        write("a.pdf");
        QVERIFY(waitUntil([&] { return isTold("a.pdf"); }));
        QCOMPARE(log_->batches().first().threadName, u"org.fennick.Fennick.fsevents"_s);
    }

    void namesOutsideAsciiAreToldAsTheyAre() {
        start();
        write("Caf\u00E9 \U0001F600/Re\u0301c\u202E.pdf");
        QVERIFY(waitUntil([&] { return isTold("Caf\u00E9 \U0001F600/Re\u0301c\u202E.pdf"); }));
    }

    void linkedFoldersAreNotFollowed() {
        const QString outside = folder_->filePath(u"outside"_s);
        QDir().mkpath(outside);
        QFile::link(outside, path("link"));
        QFile::link(root_, path("loop"));
        start();
        writeFile(outside + u"/a.pdf"_s, "x");
        write("marker.pdf");
        QVERIFY(waitUntil([&] { return isTold("marker.pdf"); }));
        QCOMPARE(log_->paths(), QSet<QString>{path("marker.pdf")});
    }

    void overflowingQueueLosesNoFile() {
        QFile limit(u"/proc/sys/fs/inotify/max_queued_events"_s);
        if (!limit.open(QIODevice::ReadOnly)) {
            QSKIP("The queue's size cannot be read");
        }
        const int files = limit.readAll().trimmed().toInt() / 2;
        if (files > 50000) {
            QSKIP("The queue is too long to be overrun in a test");
        }
        // The first batch is held up until more has happened than the queue can take: each file is created,
        // modified and closed.
        QMutex gate;
        gate.lock();
        watcher_ = std::make_unique<FSEventsWatcher>(root_, [&](const QList<FileEvent> &events) {
            log_->append(events);
            const QMutexLocker wait(&gate);
        });
        watcher_->start().waitForFinished();
        write("first.pdf");
        const bool isHeldUp = waitUntil([this] { return isTold("first.pdf"); });
        for (int index = 0; index < files; ++index) {
            write((QByteArray::number(index) + ".pdf").constData());
        }
        gate.unlock();
        QVERIFY(isHeldUp);
        QVERIFY(waitUntil([&] { return log_->paths().size() >= files + 1; }));
    }

private:
    QString path(const char *name) const { return root_ + u'/' + QString::fromUtf8(name); }
    void write(const char *name) const { writeFile(path(name), "content"); }
    bool isTold(const char *name) const { return log_->paths().contains(path(name)); }

    void create() {
        watcher_ = std::make_unique<FSEventsWatcher>(
            root_, [log = log_.get()](const QList<FileEvent> &events) { log->append(events); });
    }

    void start() {
        create();
        watcher_->start().waitForFinished();
    }

    std::unique_ptr<QTemporaryDir> folder_;
    QString root_;
    std::unique_ptr<Log> log_;
    std::unique_ptr<FSEventsWatcher> watcher_;
};

int fs_events_watcher_test(int argc, char **argv) {
    return runTest<QCoreApplication, FsEventsWatcherTest>(argc, argv);
}
#include "fs_events_watcher_test.moc"
