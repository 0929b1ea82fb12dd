#pragma once

#include <QFuture>
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

    // To be awaited before the main thread looks at a file: suspends until the file system answers.
    [[nodiscard]] QFuture<void> answer(const QString &path) const;

    // Waits two seconds and abandons the threads that are still blocked. Nothing may be run afterwards.
    void end();

private:
    std::unique_ptr<QThreadPool> pool_;
};

} // namespace fennick
