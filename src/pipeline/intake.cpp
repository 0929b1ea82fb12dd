#include "pipeline/intake.h"

#include "files/fs_events_watcher.h"
#include "kinds/document_kind.h"
#include "model/receipt_store.h"
#include "pipeline/archive.h"
#include "pipeline/folder_threads.h"
#include "pipeline/receipt_files.h"
#include "pipeline/renamed_paths.h"
#include "pipeline/scan_run.h"
#include "pipeline/tasks.h"
#include "pipeline/watched_folder.h"
#include "platform/unreadable_names.h"
#include "text/path_text.h"

#include <QCoroFuture>
#include <QDir>
#include <QPointer>
#include <QScopeGuard>
#include <QtConcurrent>

namespace fennick {

Intake::Intake(ReceiptStore *store, WatchedFolder *watchedFolder, const RenamedPaths *renamedPaths,
               const Archive *archive, const FolderThreads *folderThreads, ScanRun *scanRun, Tasks *tasks)
    : store_(store)
    , watchedFolder_(watchedFolder)
    , renamedPaths_(renamedPaths)
    , archive_(archive)
    , folderThreads_(folderThreads)
    , scanRun_(scanRun)
    , tasks_(tasks)
    , unreadableNames_(store, archive, folderThreads, tasks)
    , stability_(folderThreads) {
    connect(&debounce_, &Debounce::elapsed, this,
            [this](const QString &path) { tasks_->start(processFile(path)); });
}

Intake::~Intake() = default;

void Intake::startWatching(const QString &path, const QFuture<void> &ready) {
    const QString folder = QDir::cleanPath(path); // events and listing must spell paths alike
    if (folder != watchedFolder_->path) {
        listedFiles_.clear();
    }
    watcher_.reset();
    watchedFolder_->path = folder;
    // Both on the watcher's thread, which reports nothing once this object has been destroyed.
    const auto onEvents = [this](const QList<FileEvent> &events) {
        QMetaObject::invokeMethod(this, [this, events] { handleEvents(events); }, Qt::QueuedConnection);
    };
    const auto onPresence = [this, folder](bool isThere) {
        const auto report = [this, folder, isThere] {
            if (folder == watchedFolder_->path) {
                presence_.set(isThere);
            }
        };
        QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
    };
    watcher_ = std::make_unique<FSEventsWatcher>(folder, onEvents, onPresence);
    const QFuture<void> watching = watcher_->start();
    ScanRun::prepare();
    tasks_->start(takeInExistingFiles(folder, watching, ready));
    unreadableNames_.list(folder);
}

void Intake::handleEvents(const QList<FileEvent> &events) {
    QStringList listed;
    for (const FileEvent &event : events) {
        if (!kindOfName(event.path) || archive_->contains(event.path) ||
            renamedPaths_->contains(event.path, event.at)) {
            continue;
        }
        if (!event.isListed) {
            debounce_.restart(event.path, event.at);
        } else if (!isHidden(event.path) && !debounce_.isPending(event.path)) {
            listed.append(event.path);
        }
    }
    listed.sort();
    takeInLater(listed);
}

// Waits for the watch first: a file that arrived between the listing and the watch would be missed.
QCoro::Task<> Intake::takeInExistingFiles(QString folder, QFuture<void> watching, QFuture<void> ready) {
    const QPointer<Intake> self(this);
    co_await watching;
    if (!self) {
        co_return;
    }
    co_await ready;
    if (!self) {
        co_return;
    }
    const QStringList paths = co_await QtConcurrent::run(folderThreads_->pool(), receiptFilesIn, folder);
    if (self && folder == watchedFolder_->path) {
        takeInLater(paths);
    }
}

void Intake::takeIn(const QStringList &paths) {
    QStringList files;
    for (const QString &path : paths) {
        if (isLexicallyBelow(path, watchedFolder_->path) && kindOfName(path) && !archive_->contains(path)) {
            files.append(path);
        }
    }
    files.sort();
    takeInLater(files);
}

// What lies in the folder is taken in by one rule, whether it is found at the start or later: no hidden
// files, no folders, and one file after the other, so that a full folder is not sent all at once.
void Intake::takeInLater(const QStringList &listed) {
    listedFiles_.append(listed);
    if (!isTakingInListedFiles_ && !listedFiles_.isEmpty()) {
        tasks_->start(takeInOneAfterTheOther());
    }
}

QCoro::Task<> Intake::takeInOneAfterTheOther() {
    const QPointer<Intake> self(this);
    isTakingInListedFiles_ = true;
    const auto end = qScopeGuard([self] {
        if (self) {
            self->isTakingInListedFiles_ = false;
        }
    });
    while (self && !listedFiles_.isEmpty()) {
        const QString path = listedFiles_.takeFirst();
        co_await folderThreads_->whenAnswering(path);
        if (!self) {
            co_return;
        }
        const FileKind kind = store_->hasFilePath(path) ? FileKind::missing : fileStateAt(path).kind;
        if (kind == FileKind::regular || kind == FileKind::link) {
            co_await tasks_->reportFailureOf(processFile(path)); // the others are taken in all the same
        } else if (mayBeUnreadable(path)) {
            unreadableNames_.listAgainSoon();
        }
    }
}

// Whether it is a hidden file, or lies in a hidden folder, as seen from the watched folder.
bool Intake::isHidden(const QString &path) const {
    return path.mid(watchedFolder_->path.size()).contains(u"/.");
}

QCoro::Task<> Intake::processFile(QString path) {
    if (!kindOfName(path) || archive_->contains(path) || store_->hasFilePath(path)) {
        co_return;
    }
    if (inFlight_.contains(path)) {
        // A change while the size is being watched starts the watch anew: refusing the file now and having
        // refused this event would leave it lying there.
        if (stability_.isWatching(path)) {
            co_await stability_.restart(path);
        }
        co_return;
    }
    inFlight_.insert(path);
    const QPointer<Intake> self(this);
    co_await folderThreads_->whenAnswering(path);
    if (self) {
        co_await takeInWhenStable(path, StabilityWatch::read(path));
    }
}

QCoro::Task<> Intake::takeInWhenStable(QString path, StabilityWatch::Reading reading) {
    const QPointer<Intake> self(this);
    auto leaving = qScopeGuard([self, path] {
        if (self) {
            self->inFlight_.remove(path);
        }
    });
    const auto file = co_await stability_.wait(path, reading);
    if (!self) {
        co_return;
    }
    if (!file) {
        // The watch goes on in a task of its own, so that whoever waits for this one can turn to other files.
        leaving.dismiss();
        tasks_->start(takeInWhenStable(path, stability_.take(path)));
    } else if (file->kind != FileKind::missing) {
        co_await addAndScan(path, *file);
    } else if (mayBeUnreadable(path)) {
        unreadableNames_.listAgainSoon();
    }
}

// Lists the file and scans it. What is not read is listed all the same: who put it there would wait for it in
// vain.
QCoro::Task<> Intake::addAndScan(QString path, FileState file) {
    Receipt receipt = freshReceipt(path);
    if (const auto problem = problemOf(file)) {
        receipt.status = ReceiptStatus::error;
        receipt.error = problem->description();
        store_->add(receipt);
        co_return;
    }
    store_->add(receipt);
    co_await scanRun_->run(receipt, file.identity);
}

} // namespace fennick
