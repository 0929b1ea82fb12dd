#pragma once

#include <QFuture>
#include <QHash>
#include <QString>
#include <QThreadPool>

#include <memory>

namespace fennick {

// Threads for what lists folders or looks at files in them: on a network that is gone, they wait for ever.
// Owned by AppState, which ends them before anything else.
class FolderThreads {
public:
    FolderThreads();

    QThreadPool *pool() const { return pool_.get(); }

    // To be awaited before the main thread looks at a file: finishes when the file system answers. One thread
    // asks for all files of a folder, so that a dead one does not take all threads. Main thread.
    [[nodiscard]] QFuture<void> answer(const QString &path) const;

    // Waits two seconds and abandons the threads that are still blocked. Nothing may be run afterwards.
    void end();

private:
    std::unique_ptr<QThreadPool> pool_;
    mutable QHash<QString, QFuture<void>> asked_; // by folder, not answered yet when last looked at
};

} // namespace fennick
