#pragma once

#include <QDeadlineTimer>
#include <QFuture>
#include <QHash>
#include <QSemaphore>
#include <QString>
#include <QThreadPool>

#include <memory>

namespace fennick {

// Threads for listing folders and looking at files, which may block for ever on an unreachable network.
// Owned by AppState, which ends them before anything else.
class FolderThreads {
public:
    FolderThreads();

    QThreadPool *pool() const { return pool_.get(); }

    // To be awaited before the main thread looks at a file: finishes when the file system answers. One thread
    // asks for all files of a folder, so that a dead one does not take all threads. Main thread.
    [[nodiscard]] QFuture<void> whenAnswering(const QString &path) const;

    // Whether the file system answers, for callers that must not suspend. Blocks for a second at most, and
    // not again for any file of a folder that still keeps silent. Main thread.
    [[nodiscard]] bool answersSoon(const QString &path) const;

    // Waits two seconds and abandons the threads that are still blocked. Nothing may be run afterwards.
    void end();

private:
    struct Asked {
        QFuture<void> future;
        std::shared_ptr<QSemaphore> answers; // one, once there is an answer
        QDeadlineTimer deadline;
    };

    const Asked &ask(const QString &path) const;

    std::unique_ptr<QThreadPool> pool_;
    mutable QHash<QString, Asked> asked_; // by folder, not answered yet when last looked at
};

} // namespace fennick
