#include "pipeline/folder_threads.h"

#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QtConcurrent>

#include <tuple>

namespace fennick {

namespace {

// Threads may wait for several folders, one chosen after the other, on a network that is gone.
constexpr int mostFolderThreads = 32;

constexpr int patienceAtEnd = 2000; // milliseconds

} // namespace

FolderThreads::FolderThreads()
    : pool_(std::make_unique<QThreadPool>()) {
    pool_->setMaxThreadCount(mostFolderThreads);
}

QFuture<void> FolderThreads::answer(const QString &path) const {
    asked_.removeIf([](const auto &asked) { return asked.value().isFinished(); });
    QFuture<void> &answer = asked_[parentFolder(path)];
    if (!answer.isValid()) {
        answer = QtConcurrent::run(pool_.get(), [path] { std::ignore = fileStateAt(path); });
    }
    return answer;
}

void FolderThreads::end() {
    if (!pool_->waitForDone(patienceAtEnd)) {
        std::ignore = pool_.release(); // the end of the process waits for no thread
    }
}

} // namespace fennick
