#include "pipeline/stability_watch.h"

#include "pipeline/folder_threads.h"

#include <QCoroFuture>
#include <QCoroTimer>
#include <QPointer>
#include <QTimer>

namespace fennick {

namespace {

constexpr std::chrono::milliseconds stabilityInterval{500};

// Suspends the calling task until `due`: never shorter, and at most a few milliseconds longer.
QCoro::Task<> sleepUntil(std::chrono::steady_clock::time_point due) {
    using std::chrono::milliseconds;
    // Qt's own sleep may end up to a twentieth early.
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    for (auto now = std::chrono::steady_clock::now(); now < due; now = std::chrono::steady_clock::now()) {
        timer.start(std::chrono::ceil<milliseconds>(due - now));
        co_await timer;
    }
}

} // namespace

StabilityWatch::Reading StabilityWatch::read(const QString &path) {
    return {fileStateAt(path), std::chrono::steady_clock::now()};
}

QCoro::Task<> StabilityWatch::restart(QString path) {
    readings_[path].isOutdated = true;
    const QPointer<StabilityWatch> self(this);
    co_await folderThreads_->whenAnswering(path);
    if (self && isWatching(path)) {
        readings_[path] = read(path);
    }
}

QCoro::Task<std::optional<FileState>> StabilityWatch::wait(QString path, Reading reading) {
    if (reading.state.kind == FileKind::missing) {
        co_return FileState();
    }
    readings_[path] = reading;
    const QPointer<StabilityWatch> self(this);
    co_await sleepUntil(reading.at + stabilityInterval);
    if (!self) {
        co_return FileState();
    }
    co_await folderThreads_->whenAnswering(path);
    if (!self) {
        co_return FileState();
    }
    const Reading present = readings_.value(path);
    if (present.isOutdated) {
        readings_[path] = read(path);
        co_return std::nullopt;
    }
    if (present.at != reading.at) {
        co_return std::nullopt;
    }
    readings_.remove(path);
    const FileState state = fileStateAt(path);
    const bool isStable = state.size > 0 && state == reading.state;
    co_return isStable ? state : FileState();
}

} // namespace fennick
