#pragma once

#include <QFuture>
#include <QList>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>

namespace fennick {

// A path at or below the watched folder at which something changed, and when the system told of it.
struct FileEvent {
    QString path;
    std::chrono::steady_clock::time_point at;
    bool isListed = false; // found by listing a folder; it may have changed long ago
};

// The system's events for one folder and everything below it, from creation to destruction. Events are told
// one batch at a time on a thread of the stream's own: the first after a quiet period at once, further ones
// at intervals of `latency`. Files found in a folder that is new below the watched one, or whose events the
// system lost, are told like changes, so a path may be told more than once but never not at all. A watched
// folder that is missing, or over which another file system is mounted, is waited for and told anew. Where
// the system does not tell of every change (network file systems, too many folders), the folder is listed at
// intervals of `relisting`. Created and destroyed on one thread, which never waits for the folder: it may lie
// on a network that is gone. No batch is delivered after the destruction.
class FileEventStream {
public:
    using Deliver = std::function<void(const QList<FileEvent> &)>;

    // `threadName` names the thread to debuggers. Null when the system cannot even give an event to end the
    // thread by.
    static std::unique_ptr<FileEventStream> create(const QString &folder, std::chrono::milliseconds latency,
                                                   std::chrono::milliseconds relisting,
                                                   const QString &threadName, Deliver deliver);
    ~FileEventStream();

    // Finishes as soon as changes are reported.
    QFuture<void> watching() const;

private:
    class Worker;
    explicit FileEventStream(std::shared_ptr<Worker> worker);

    std::shared_ptr<Worker> worker_;
};

} // namespace fennick
