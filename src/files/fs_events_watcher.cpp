#include "files/fs_events_watcher.h"

#include "platform/application_id.h"

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

constexpr std::chrono::milliseconds latency{300};
constexpr std::chrono::seconds relisting{60};

} // namespace

FSEventsWatcher::FSEventsWatcher(QString path, OnPaths onPaths, OnPresence onPresence)
    : path_(std::move(path))
    , onPaths_(std::move(onPaths))
    , onPresence_(std::move(onPresence)) {}

QFuture<void> FSEventsWatcher::start() {
    stream_.reset(); // never two streams at once
    stream_ = FileEventStream::create(
        path_, latency, relisting, applicationId + u".fsevents"_s,
        [this](const QList<FileEvent> &events) {
            if (!events.isEmpty()) {
                onPaths_(events);
            }
        },
        onPresence_);
    return stream_ ? stream_->watching() : QFuture<void>();
}

} // namespace fennick
