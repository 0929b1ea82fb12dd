#include "extraction/gemini_client.h"
#include "kinds/document_kind.h"
#include "pipeline/app_state.h"
#include "pipeline/precise_sleep.h"
#include "platform/unreadable_names.h"
#include "text/path_text.h"

#include <QCoroFuture>
#include <QDir>
#include <QDirIterator>
#include <QScopeGuard>
#include <QtConcurrent>

namespace fennick {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds debounceInterval{300};
constexpr milliseconds stabilityInterval{500};

// Supported regular files and links below `folder`, without hidden ones and what lies in hidden folders;
// links are not followed.
QStringList existingFiles(const QString &folder) {
    QStringList paths;
    QDirIterator entries(folder, QDir::Files | QDir::System, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const FileKind kind = AppState::isSupported(path) ? fileStateAt(path).kind : FileKind::missing;
        if (kind == FileKind::regular || kind == FileKind::link) {
            paths.append(path);
        }
    }
    paths.sort();
    return paths;
}

} // namespace

bool AppState::isSupported(const QString &path) {
    return kindOfName(path).has_value();
}

void AppState::startWatchingIfConfigured() {
    const QString path = settings_->watchFolderPath().value_or(QString());
    if (!path.isEmpty()) {
        startWatching(path);
    }
}

void AppState::startWatching(const QString &path) {
    const QString folder = QDir::cleanPath(path); // events and listing must spell paths alike
    if (folder != watchedFolder_) {
        listedFiles_.clear();
    }
    watcher_.reset();
    watchedFolder_ = folder;
    watcher_ = std::make_unique<FSEventsWatcher>(folder, [this](const QList<FileEvent> &events) {
        // On the watcher's thread, which reports nothing once this object has been destroyed.
        QMetaObject::invokeMethod(this, [this, events] { handleEvents(events); }, Qt::QueuedConnection);
    });
    const QFuture<void> watching = watcher_->start();
    GeminiClient::prepare();
    startTask(scanExistingFiles(folder, watching));
    startTask(listUnreadableNames(folder));
}

void AppState::handleEvents(const QList<FileEvent> &events) {
    QStringList listed;
    for (const FileEvent &event : events) {
        if (!isSupported(event.path) || isInArchive(event.path) ||
            recentlyRenamedTo_.contains(event.path, event.at)) {
            continue;
        }
        if (!event.isListed) {
            debounce(event);
        } else if (!isHidden(event.path) && !pendingDebounce_.contains(event.path)) {
            listed.append(event.path);
        }
    }
    listed.sort();
    takeInLater(listed);
}

// The interval counts from the event itself: the watcher may have held it back to tell it in a batch.
void AppState::debounce(const FileEvent &event) {
    QTimer *&timer = pendingDebounce_[event.path];
    if (timer == nullptr) {
        timer = new QTimer(this);
        timer->setTimerType(Qt::PreciseTimer);
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this, path = event.path] {
            pendingDebounce_.take(path)->deleteLater();
            startTask(processFile(path));
        });
    }
    const auto remaining = std::chrono::ceil<milliseconds>(event.at + debounceInterval - Clock::now());
    timer->start(std::max(milliseconds(0), remaining));
}

bool AppState::isInArchive(const QString &path) const {
    if (path.contains(u"/Receipt Archive/")) {
        return true;
    }
    const QString configured = settings_->archiveFolderPath().value_or(QString());
    if (configured.isEmpty()) {
        return false;
    }
    return path.startsWith(joinedPath(QDir::cleanPath(configured), QString())); // as archiveRoot()
}

// Waits for the watch first: a file that arrived between the listing and the watch would be missed.
QCoro::Task<> AppState::scanExistingFiles(QString folder, QFuture<void> watching) {
    const QPointer<AppState> self(this); // the program may be ending
    co_await watching;
    if (!self) {
        co_return;
    }
    co_await adoption_;
    if (!self) {
        co_return;
    }
    const QStringList paths = co_await QtConcurrent::run(folderThreads_.get(), existingFiles, folder);
    if (self && folder == watchedFolder_) {
        takeInLater(paths);
    }
}

// What lies in the folder is taken in by one rule, whether it is found at the start or later: no hidden
// files, no folders, and one file after the other, so that a full folder is not sent all at once.
void AppState::takeInLater(const QStringList &listed) {
    listedFiles_.append(listed);
    if (!isTakingInListedFiles_ && !listedFiles_.isEmpty()) {
        startTask(takeInOneAfterTheOther());
    }
}

QCoro::Task<> AppState::takeInOneAfterTheOther() {
    const QPointer<AppState> self(this);
    isTakingInListedFiles_ = true;
    const auto end = qScopeGuard([self] {
        if (self) {
            self->isTakingInListedFiles_ = false;
        }
    });
    while (self && !listedFiles_.isEmpty()) {
        const QString path = listedFiles_.takeFirst();
        const FileKind kind = store_->hasFilePath(path) ? FileKind::missing : fileStateAt(path).kind;
        if (kind == FileKind::regular || kind == FileKind::link) {
            co_await reportFailureOf(processFile(path)); // the others are taken in all the same
        } else if (mayBeUnreadable(path)) {
            unreadableNames_.start();
        }
    }
}

// Whether it is a hidden file, or lies in a hidden folder, as seen from the watched folder.
bool AppState::isHidden(const QString &path) const {
    return path.mid(watchedFolder_.size()).contains(u"/.");
}

QCoro::Task<> AppState::processFile(QString path) {
    if (!isSupported(path) || isInArchive(path) || store_->hasFilePath(path)) {
        co_return;
    }
    if (inFlight_.contains(path)) {
        // A change while the size is being watched starts the watch anew: refusing the file now and having
        // refused this event would leave it lying there.
        if (stabilityReadings_.contains(path)) {
            stabilityReadings_[path] = {fileStateAt(path), Clock::now()};
        }
        co_return;
    }
    inFlight_.insert(path);
    co_await takeInWhenStable(path, {fileStateAt(path), Clock::now()});
}

QCoro::Task<> AppState::takeInWhenStable(QString path, StateReading reading) {
    const QPointer<AppState> self(this);
    auto leaving = qScopeGuard([self, path] {
        if (self) {
            self->inFlight_.remove(path);
        }
    });
    const auto file = co_await waitForFileStability(path, reading);
    if (!self) {
        co_return;
    }
    if (!file) {
        // The watch goes on in a task of its own, so that whoever waits for this one can turn to other files.
        leaving.dismiss();
        startTask(takeInWhenStable(path, stabilityReadings_.take(path)));
    } else if (file->kind != FileKind::missing) {
        co_await takeIn(path, *file);
    } else if (mayBeUnreadable(path)) {
        unreadableNames_.start();
    }
}

// Lists the file and scans it. What is not read is listed all the same: who put it there would wait for it in
// vain.
QCoro::Task<> AppState::takeIn(QString path, FileState file) {
    Receipt receipt = freshReceipt(path);
    if (const auto problem = problemOf(file)) {
        receipt.status = ReceiptStatus::error;
        receipt.error = problem->description();
        store_->add(receipt);
        co_return;
    }
    store_->add(receipt);
    co_await runScan(receipt, file.identity);
}

// What stands at the path, if it is not empty and has stayed the same since `reading` for the interval; else
// a missing file. Nothing when the watch has to begin anew, from the reading that has been made meanwhile.
QCoro::Task<std::optional<FileState>> AppState::waitForFileStability(QString path, StateReading reading) {
    if (reading.state.kind == FileKind::missing) {
        co_return FileState();
    }
    stabilityReadings_[path] = reading;
    const QPointer<AppState> self(this);
    co_await sleepUntil(reading.at + stabilityInterval);
    if (!self) {
        co_return FileState();
    }
    if (stabilityReadings_.value(path).at != reading.at) {
        co_return std::nullopt;
    }
    stabilityReadings_.remove(path);
    const FileState state = fileStateAt(path);
    const bool isStable = state.size > 0 && state == reading.state;
    co_return isStable ? state : FileState();
}

} // namespace fennick
