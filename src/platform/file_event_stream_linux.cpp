#include "platform/file_event_stream.h"
#include "platform/mount_points_linux.h"
#include "platform/path_watch_linux.h"
#include "platform/tree_listing_linux.h"
#include "platform/watched_tree_linux.h"

#include <QFile>
#include <QMutex>
#include <QPromise>
#include <QThread>

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <future>
#include <optional>
#include <set>
#include <string>
#include <thread>

namespace fennick {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// How often a missing root is looked for. Only then does the thread wake without an event.
constexpr milliseconds missingRootInterval{250};

// After events the next ones are left to gather for this long: in a burst they come microseconds apart, and
// waking for each of them costs half as much again as reading them together.
constexpr milliseconds gathering{5};

// How long the stream's end waits for its thread, which may be waiting for a network folder that is gone.
constexpr std::chrono::seconds patienceAtEnd{2};

// What debuggers are shown of a name, with the zero at its end.
constexpr qsizetype threadNameSize = 16;

} // namespace

// Shared by the stream and its thread, which may outlive the stream.
class FileEventStream::Worker {
public:
    Worker(const QString &folder, milliseconds latency, milliseconds relistingInterval, OnEvents onEvents,
           OnPresence onPresence)
        : root_(QFile::encodeName(folder).toStdString())
        , tree_(QFile::encodeName(folder))
        , path_(root_)
        , listing_(root_)
        , latency_(latency)
        , relistingInterval_(relistingInterval)
        , onEvents_(std::move(onEvents))
        , onPresence_(std::move(onPresence))
        , stop_(eventfd(0, EFD_CLOEXEC))
        , mounts_(open("/proc/self/mounts", O_RDONLY | O_CLOEXEC)) {
        watching_.start(); // here, so that whoever waits for it finds it under way
    }

    ~Worker() {
        for (const int descriptor : {stop_, mounts_}) {
            if (descriptor >= 0) {
                close(descriptor);
            }
        }
    }

    bool isUsable() const { return stop_ >= 0; }
    QFuture<void> watching() const { return watching_.future(); }

    // On the thread, until the end.
    void run(const QString &threadName) {
        QThread::currentThread()->setObjectName(threadName);
        pthread_setname_np(pthread_self(), threadName.toUtf8().left(threadNameSize - 1).constData());
        tree_.watchRoot();
        path_.renew();
        mountPoints_ = mountPointsBelow(root_);
        watching_.finish();
        reportPresenceIfNew();
        reportEvents();
        ended_.set_value();
    }

    // Nothing is delivered afterwards.
    void end() {
        {
            const QMutexLocker lock(&delivering_);
            hasEnded_ = true;
        }
        eventfd_write(stop_, 1);
        ended_.get_future().wait_for(patienceAtEnd);
    }

private:
    void reportEvents() {
        nextListing_ = Clock::now() + relistingInterval_;
        while (waitForEvents()) {
            const bool hasTakenEvents = takeEvents();
            reportPresenceIfNew();
            deliverWhenDue();
            if (hasTakenEvents) {
                letEventsGather();
            }
        }
    }

    // A folder may be there and yet not be watched, for want of watches.
    void reportPresenceIfNew() {
        std::error_code error;
        const bool isThere = tree_.isWatchingRoot() || std::filesystem::is_directory(root_, error);
        if (std::exchange(wasThere_, isThere) == isThere) {
            return;
        }
        const QMutexLocker lock(&delivering_);
        if (!hasEnded_ && onPresence_) {
            onPresence_(isThere);
        }
    }

    void letEventsGather() const {
        pollfd stop{stop_, POLLIN, 0};
        poll(&stop, 1, static_cast<int>(gathering.count()));
    }

    // Returns when events can be read, file systems were mounted or unmounted, the root's path may lead to
    // another folder, or a step is due; false = stop.
    bool waitForEvents() {
        std::array<pollfd, 4> sources{pollfd{stop_, POLLIN, 0}, pollfd{tree_.descriptor(), POLLIN, 0},
                                      pollfd{mounts_, POLLPRI, 0}, pollfd{path_.descriptor(), POLLIN, 0}};
        poll(sources.data(), sources.size(), static_cast<int>(timeUntilNextStep().count()));
        haveMountsChanged_ = sources[2].revents != 0;
        if (haveMountsChanged_ || sources[3].revents != 0) {
            tree_.checkRoot();
            path_.renew();
        }
        return (sources[0].revents & POLLIN) == 0;
    }

    // Until a delivery is due, a missing root is looked for, or the tree is listed.
    milliseconds timeUntilNextStep() const {
        auto next = Clock::time_point::max();
        if (!pending_.isEmpty()) {
            next = *lastDelivery_ + latency_;
        } else if (!tree_.isWatchingRoot()) {
            next = Clock::now() + missingRootInterval;
        }
        if (isInNeedOfListing()) {
            next = std::min(next, nextListing_);
        }
        constexpr milliseconds forever{-1};
        return next == Clock::time_point::max()
                   ? forever
                   : std::max(milliseconds(0), std::chrono::ceil<milliseconds>(next - Clock::now()));
    }

    bool isInNeedOfListing() const { return !tree_.isComplete() || isOnRemoteFileSystem(root_); }

    void list(QList<TreeChange> &changes) {
        tree_.watchRoot(); // there may be more watches to be had by now
        QList<QByteArray> paths;
        listing_.refresh(paths);
        for (const QByteArray &path : std::as_const(paths)) {
            changes.append({path, true});
        }
        nextListing_ = Clock::now() + relistingInterval_;
    }

    // Returns whether there were any.
    bool takeEvents() {
        QList<TreeChange> changes;
        if (!tree_.isWatchingRoot()) {
            lookForRoot(changes);
        }
        if (haveMountsChanged_) {
            watchMountedFolders(changes);
        }
        tree_.readEvents(changes);
        if (Clock::now() >= nextListing_ && isInNeedOfListing()) {
            list(changes);
        }
        const auto now = Clock::now();
        for (const TreeChange &change : std::as_const(changes)) {
            append({QFile::decodeName(change.path), now, change.isListed});
        }
        return !changes.isEmpty();
    }

    void lookForRoot(QList<TreeChange> &changes) {
        tree_.lookForRoot(changes);
        if (tree_.isWatchingRoot()) {
            path_.renew();
        }
    }

    // Only what is mounted in the tree is worth a walk through it.
    void watchMountedFolders(QList<TreeChange> &changes) {
        std::set<std::string> points = mountPointsBelow(root_);
        if (points != mountPoints_) {
            mountPoints_ = std::move(points);
            tree_.watchWhatIsNew(changes);
        }
    }

    // A file that is being written causes many events in a row; the latest time is enough.
    void append(const FileEvent &event) {
        if (!pending_.isEmpty() && pending_.last().path == event.path) {
            pending_.last().at = event.at;
            pending_.last().isListed = pending_.last().isListed && event.isListed;
        } else {
            pending_.append(event);
        }
    }

    void deliverWhenDue() {
        const auto now = Clock::now();
        if (pending_.isEmpty() || (lastDelivery_ && now < *lastDelivery_ + latency_)) {
            return;
        }
        lastDelivery_ = now;
        const QMutexLocker lock(&delivering_);
        if (!hasEnded_) {
            onEvents_(std::exchange(pending_, {}));
        }
    }

    std::string root_;
    WatchedTree tree_;
    PathWatch path_;
    TreeListing listing_;
    milliseconds latency_;
    milliseconds relistingInterval_;
    OnEvents onEvents_;
    OnPresence onPresence_;
    std::optional<bool> wasThere_; // as last reported
    int stop_;
    int mounts_; // turns readable as an exception when the table of mounted file systems changes
    bool haveMountsChanged_ = false;
    std::set<std::string> mountPoints_;
    Clock::time_point nextListing_;
    QPromise<void> watching_;
    std::promise<void> ended_;
    QMutex delivering_;
    bool hasEnded_ = false; // guarded by delivering_
    QList<FileEvent> pending_;
    std::optional<Clock::time_point> lastDelivery_;
};

FileEventStream::FileEventStream(std::shared_ptr<Worker> worker)
    : worker_(std::move(worker)) {}

FileEventStream::~FileEventStream() {
    worker_->end();
}

QFuture<void> FileEventStream::watching() const {
    return worker_->watching();
}

std::unique_ptr<FileEventStream> FileEventStream::create(const QString &folder, milliseconds latency,
                                                         milliseconds relistingInterval,
                                                         const QString &threadName, OnEvents onEvents,
                                                         OnPresence onPresence) {
    auto worker = std::make_shared<Worker>(folder, latency, relistingInterval, std::move(onEvents),
                                           std::move(onPresence));
    if (!worker->isUsable()) {
        return nullptr;
    }
    std::thread([worker, threadName] { worker->run(threadName); }).detach();
    return std::unique_ptr<FileEventStream>(new FileEventStream(std::move(worker)));
}

} // namespace fennick
