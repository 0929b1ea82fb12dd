#pragma once

#include "pipeline/debounce.h"
#include "pipeline/folder_presence.h"
#include "pipeline/stability_watch.h"
#include "pipeline/unreadable_names.h"
#include "platform/file_event_stream.h"

#include <QCoroTask>
#include <QFuture>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <memory>

namespace fennick {

class Archive;
class FolderThreads;
class FSEventsWatcher;
class ReceiptStore;
class RenamedPaths;
class ScanRun;
class Tasks;
struct WatchedFolder;

// Takes receipt files in: notices what arrives in the watched folder, waits until it is complete, adds it to
// the list and has it scanned. Owned by AppState; main thread, and several files may be under way at once.
class Intake : public QObject {
    Q_OBJECT

public:
    Intake(ReceiptStore *store, WatchedFolder *watchedFolder, const RenamedPaths *renamedPaths,
           const Archive *archive, const FolderThreads *folderThreads, ScanRun *scanRun, Tasks *tasks);
    ~Intake() override;

    // Watches `path` instead of the current folder. The files already in it are taken in once `ready`, for
    // which see Recovery::renamedFilesAdopted, has finished. What is being scanned of the former folder goes
    // on.
    void startWatching(const QString &path, const QFuture<void> &ready);

    // Takes in, one after the other, those of these files that are receipt files in the watched folder,
    // outside of archives, and neither listed nor ignored.
    void takeIn(const QStringList &paths);

    // Whether the watched folder is there.
    const FolderPresence *presence() const { return &presence_; }

private:
    void handleEvents(const QList<FileEvent> &events);
    [[nodiscard]] QCoro::Task<> takeInExistingFiles(QString folder, QFuture<void> watching,
                                                    QFuture<void> ready);
    void takeInLater(const QStringList &listed);
    [[nodiscard]] QCoro::Task<> takeInOneAfterTheOther();
    bool isHidden(const QString &path) const;
    [[nodiscard]] QCoro::Task<> processFile(QString path);
    [[nodiscard]] QCoro::Task<> takeInWhenStable(QString path, StabilityWatch::Reading reading);
    [[nodiscard]] QCoro::Task<> addAndScan(QString path, FileState file);

    ReceiptStore *store_;
    WatchedFolder *watchedFolder_;
    const RenamedPaths *renamedPaths_;
    const Archive *archive_;
    const FolderThreads *folderThreads_;
    ScanRun *scanRun_;
    Tasks *tasks_;
    std::unique_ptr<FSEventsWatcher> watcher_;
    UnreadableNames unreadableNames_;
    QStringList listedFiles_; // found by listing a folder, to be taken in one after the other
    bool isTakingInListedFiles_ = false;
    Debounce debounce_;
    QSet<QString> inFlight_; // paths being taken in, up to the end of their scan
    StabilityWatch stability_;
    FolderPresence presence_;
};

} // namespace fennick
