#include "platform/file_event_stream.h"
#include "platform/watched_tree_linux.h"

#include <QFile>
#include <QThread>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <optional>

namespace fennick {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// How often a missing root is looked for. Only then does the thread wake without an event.
constexpr milliseconds missingRootInterval{250};

} // namespace

class FileEventStream::Worker {
public:
    Worker(const QString &folder, milliseconds latency, Deliver deliver)
        : tree_(QFile::encodeName(folder))
        , latency_(latency)
        , deliver_(std::move(deliver))
        , stop_(eventfd(0, EFD_CLOEXEC)) {}

    ~Worker() {
        if (thread_) {
            eventfd_write(stop_, 1);
            thread_->wait();
        }
        if (stop_ >= 0) {
            close(stop_);
        }
    }

    bool isUsable() const { return tree_.descriptor() >= 0 && stop_ >= 0; }

    void start(const QString &threadName) {
        tree_.watchRoot();
        thread_.reset(QThread::create([this] { run(); }));
        thread_->setObjectName(threadName);
        thread_->start();
    }

private:
    void run() {
        while (waitForEvents()) {
            takeEvents();
            deliverWhenDue();
        }
    }

    // Returns when events can be read, a delivery is due or the root must be looked for; false = stop.
    bool waitForEvents() const {
        std::array<pollfd, 2> sources{pollfd{stop_, POLLIN, 0}, pollfd{tree_.descriptor(), POLLIN, 0}};
        poll(sources.data(), sources.size(), static_cast<int>(timeUntilNextStep().count()));
        return (sources[0].revents & POLLIN) == 0;
    }

    milliseconds timeUntilNextStep() const {
        if (!pending_.isEmpty()) {
            const auto due = *lastDelivery_ + latency_;
            return std::max(milliseconds(0), std::chrono::ceil<milliseconds>(due - Clock::now()));
        }
        constexpr milliseconds forever{-1};
        return tree_.isWatchingRoot() ? forever : missingRootInterval;
    }

    void takeEvents() {
        QList<QByteArray> paths;
        if (!tree_.isWatchingRoot()) {
            tree_.lookForRoot(paths);
        }
        tree_.readEvents(paths);
        const auto now = Clock::now();
        for (const QByteArray &path : std::as_const(paths)) {
            append({QFile::decodeName(path), now});
        }
    }

    // A file that is being written tells of itself many times in a row; the latest time is enough.
    void append(const FileEvent &event) {
        if (!pending_.isEmpty() && pending_.last().path == event.path) {
            pending_.last().at = event.at;
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
        deliver_(std::exchange(pending_, {}));
    }

    WatchedTree tree_;
    milliseconds latency_;
    Deliver deliver_;
    int stop_;
    std::unique_ptr<QThread> thread_;
    QList<FileEvent> pending_;
    std::optional<Clock::time_point> lastDelivery_;
};

FileEventStream::FileEventStream(std::unique_ptr<Worker> worker)
    : worker_(std::move(worker)) {}

FileEventStream::~FileEventStream() = default;

std::unique_ptr<FileEventStream> FileEventStream::create(const QString &folder, milliseconds latency,
                                                         const QString &threadName, Deliver deliver) {
    auto worker = std::make_unique<Worker>(folder, latency, std::move(deliver));
    if (!worker->isUsable()) {
        return nullptr;
    }
    worker->start(threadName);
    return std::unique_ptr<FileEventStream>(new FileEventStream(std::move(worker)));
}

} // namespace fennick
