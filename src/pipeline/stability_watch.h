#pragma once

#include "platform/regular_file.h"

#include <QCoroTask>
#include <QHash>
#include <QObject>
#include <QString>

#include <chrono>
#include <optional>

namespace fennick {

class FolderThreads;

// Watches files until they have stayed the same for 0.5 s, so that none is read while it is being written.
// Owned by the intake; main thread.
class StabilityWatch : public QObject {
    Q_OBJECT

public:
    struct Reading {
        FileState state;
        std::chrono::steady_clock::time_point at;
        bool isOutdated = false; // the file has changed since
    };

    explicit StabilityWatch(const FolderThreads *folderThreads)
        : folderThreads_(folderThreads) {}

    static Reading read(const QString &path);

    bool isWatching(const QString &path) const { return readings_.contains(path); }

    // Starts the wait for a watched path anew, from the state that the file has once its folder responds.
    [[nodiscard]] QCoro::Task<> restart(QString path);

    // Ends the watch and returns its last reading.
    Reading take(const QString &path) { return readings_.take(path); }

    // The state of the file if it is not empty and has not changed since `reading` for the interval;
    // otherwise a missing file. Absent if the watch was restarted meanwhile.
    [[nodiscard]] QCoro::Task<std::optional<FileState>> wait(QString path, Reading reading);

private:
    const FolderThreads *folderThreads_;
    QHash<QString, Reading> readings_;
};

} // namespace fennick
