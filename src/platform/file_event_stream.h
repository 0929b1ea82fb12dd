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

// Reports the system's events for one folder and everything below it, from construction to destruction.
// Events are delivered in batches on the stream's own thread: the first after a quiet period at once, further
// ones at intervals of `latency`. Files found in a new folder below the watched one, and files whose events
// the system lost, are reported like changes: a path may be reported twice but is never missed. A watched
// folder that is missing, or over which another file system is mounted, is awaited and its files are then
// reported. If the system does not report every change (network file systems, too many folders), the folder
// is listed at intervals of `relisting`. Whether the watched folder is there is reported at the start and
// whenever that changes. Construct and destroy it on one thread, which never waits for the folder, because
// that may be on a network that does not respond. No batch is delivered after destruction.
class FileEventStream {
public:
    using Deliver = std::function<void(const QList<FileEvent> &)>;
    using TellPresence = std::function<void(bool isThere)>; // called as Deliver is

    // `threadName` names the thread to debuggers. Returns null if the system cannot provide the event that
    // ends the thread.
    static std::unique_ptr<FileEventStream> create(const QString &folder, std::chrono::milliseconds latency,
                                                   std::chrono::milliseconds relisting,
                                                   const QString &threadName, Deliver deliver,
                                                   TellPresence tellPresence = {});
    ~FileEventStream();

    // Finishes as soon as changes are reported.
    QFuture<void> watching() const;

private:
    class Worker;
    explicit FileEventStream(std::shared_ptr<Worker> worker);

    std::shared_ptr<Worker> worker_;
};

} // namespace fennick
