#pragma once

#include <QFuture>
#include <QList>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>

namespace fennick {

// A path at or below the watched folder at which something changed, and when the system reported it.
struct FileEvent {
    QString path;
    std::chrono::steady_clock::time_point at;
    bool isListed = false; // found by listing a folder; it may have changed long ago
};

// Reports the system's events for one folder and everything below it. Callbacks run in batches on the
// stream's own thread: the first after a quiet period at once, further ones at intervals of `latency`. A path
// may be reported twice but is never missed: files found in a new folder below the watched one, and files
// whose events the system lost, are reported like changes. Construct and destroy it on one thread.
class FileEventStream {
public:
    using OnEvents = std::function<void(const QList<FileEvent> &)>;
    using OnPresence = std::function<void(bool isThere)>; // at the start, and when it changes

    // A folder that is missing, or over which another file system is mounted, is awaited and its files are
    // then reported. If the system does not report every change (network file systems, too many folders), the
    // folder is listed every `relistingInterval`. `threadName` names the thread to debuggers. Never waits for
    // the folder. Returns null if the system cannot provide the event that ends the thread.
    static std::unique_ptr<FileEventStream> create(const QString &folder, std::chrono::milliseconds latency,
                                                   std::chrono::milliseconds relistingInterval,
                                                   const QString &threadName, OnEvents onEvents,
                                                   OnPresence onPresence = {});

    // Waits two seconds for its thread, which may be waiting for the folder. No callback runs afterwards. Not
    // to be called by one.
    ~FileEventStream();

    // Finishes once changes are reported, or the folder was found to be missing.
    QFuture<void> watching() const;

private:
    class Worker;
    explicit FileEventStream(std::shared_ptr<Worker> worker);

    std::shared_ptr<Worker> worker_;
};

} // namespace fennick
