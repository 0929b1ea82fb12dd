#include "pipeline/folder_survey.h"

#include "pipeline/folder_threads.h"
#include "pipeline/receipt_files.h"
#include "platform/file_system_roots.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QtConcurrent>

#include <atomic>

namespace fennick {

namespace {

// The user's folders that hold much besides receipts.
QStringList personalFolders() {
    QStringList folders;
    for (const auto place :
         {QStandardPaths::HomeLocation, QStandardPaths::DocumentsLocation, QStandardPaths::DownloadLocation,
          QStandardPaths::PicturesLocation, QStandardPaths::DesktopLocation}) {
        folders.append(QStandardPaths::writableLocation(place));
    }
    return folders;
}

// Without links. A folder that does not exist keeps its path.
QString realPath(const QString &path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? QDir::cleanPath(path) : real;
}

} // namespace

struct FolderSurvey::Progress {
    std::atomic_bool isWide = false;
    std::atomic_int unreadFiles = 0;
    std::atomic_bool isComplete = false;
    std::atomic_bool isCancelled = false;
};

FolderSurvey::FolderSurvey(const FolderThreads *folderThreads, IsUnread isUnread,
                           std::chrono::milliseconds limit)
    : folderThreads_(folderThreads)
    , isUnread_(std::move(isUnread))
    , progress_(std::make_shared<Progress>()) {
    limit_.setSingleShot(true);
    limit_.setInterval(limit);
    connect(&limit_, &QTimer::timeout, this, &FolderSurvey::end);
    connect(&counting_, &QFutureWatcher<void>::finished, this, &FolderSurvey::end);
}

FolderSurvey::~FolderSurvey() {
    progress_->isCancelled = true;
}

void FolderSurvey::start(const QString &folder) {
    limit_.start();
    counting_.setFuture(QtConcurrent::run(
        folderThreads_->pool(), [folder, personal = personalFolders(), isUnread = isUnread_,
                                 progress = progress_] { look(folder, personal, isUnread, *progress); }));
}

// On the thread.
void FolderSurvey::look(const QString &folder, const QStringList &wideFolders, const IsUnread &isUnread,
                        Progress &progress) {
    QStringList realFolders;
    for (const QString &wide : wideFolders) {
        realFolders.append(realPath(wide));
    }
    progress.isWide = isOrContains(realPath(folder), realFolders) || holdsFileSystemRoot(folder);
    visitReceiptFiles(folder, progress.isCancelled, [&](const QString &path) {
        if (isUnread(path) && ++progress.unreadFiles > mostFilesCounted) {
            progress.isCancelled = true;
        }
    });
    progress.isComplete = !progress.isCancelled;
}

void FolderSurvey::end() {
    const FolderFacts facts{progress_->isWide, progress_->unreadFiles, progress_->isComplete};
    progress_->isCancelled = true;
    limit_.stop();
    counting_.disconnect(this);
    Q_EMIT finished(facts);
}

} // namespace fennick
