#include "pipeline/folder_threads.h"

#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QtConcurrent>

#include <chrono>
#include <tuple>

namespace fennick {

namespace {

// Threads may wait for several folders, one chosen after the other, on an unreachable network.
constexpr int mostFolderThreads = 32;

constexpr int patienceAtEnd = 2000; // milliseconds

constexpr std::chrono::seconds longestSilence{1};

} // namespace

FolderThreads::FolderThreads()
    : pool_(std::make_unique<QThreadPool>()) {
    pool_->setMaxThreadCount(mostFolderThreads);
}

const FolderThreads::Asked &FolderThreads::ask(const QString &path) const {
    asked_.removeIf([](const auto &asked) { return asked.value().future.isFinished(); });
    Asked &asked = asked_[parentFolder(path)];
    if (!asked.future.isValid()) {
        asked.answers = std::make_shared<QSemaphore>();
        asked.deadline.setRemainingTime(longestSilence);
        asked.future = QtConcurrent::run(pool_.get(), [path, answers = asked.answers] {
            std::ignore = fileStateAt(path);
            answers->release();
        });
    }
    return asked;
}

QFuture<void> FolderThreads::whenAnswering(const QString &path) const {
    return ask(path).future;
}

bool FolderThreads::answersSoon(const QString &path) const {
    const Asked &asked = ask(path);
    const bool isAnswered = asked.answers->tryAcquire(1, static_cast<int>(asked.deadline.remainingTime()));
    if (isAnswered) {
        asked.answers->release(); // for whoever asks next
    }
    return isAnswered;
}

void FolderThreads::end() {
    if (!pool_->waitForDone(patienceAtEnd)) {
        std::ignore = pool_.release(); // the end of the process waits for no thread
    }
}

} // namespace fennick
