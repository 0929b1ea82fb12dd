#pragma once

#include "platform/file_event_stream.h"

#include <QString>

#include <functional>
#include <memory>

namespace fennick {

// Reports changes below one folder in batches, without filtering or interpreting them. Owned by the intake on
// the main thread; dropping it ends the watch. `onPaths` runs on the stream's own thread, one batch at a
// time, and hands the paths over to where they are used.
class FSEventsWatcher {
public:
    using OnPaths = std::function<void(const QList<FileEvent> &)>;

    using OnPresence = std::function<void(bool isThere)>; // whether the folder is there; called as OnPaths is

    FSEventsWatcher(QString path, OnPaths onPaths, OnPresence onPresence = {});

    // Replaces an earlier watch. Changes are reported from the moment the returned future finishes; files
    // that are in the folder by then are not. Without an event source nothing is reported, and that is no
    // error.
    QFuture<void> start();

private:
    QString path_;
    OnPaths onPaths_;
    OnPresence onPresence_;
    std::unique_ptr<FileEventStream> stream_;
};

} // namespace fennick
