#include "pipeline/folder_admission.h"

#include "kinds/document_kind.h"
#include "model/receipt_store.h"
#include "pipeline/archive.h"
#include "pipeline/folder_survey.h"
#include "pipeline/folder_threads.h"
#include "pipeline/last_error.h"
#include "pipeline/receipt_files.h"
#include "pipeline/tasks.h"
#include "platform/unreadable_names.h"
#include "settings/settings_store.h"

#include <QCoroFuture>
#include <QDir>
#include <QPointer>
#include <QtConcurrent>

namespace fennick {

namespace {

// Those whose names cannot be read would become failed rows.
QStringList filesToIgnore(const QString &folder, const std::function<bool(const QString &)> &isUnread) {
    QStringList paths = receiptFilesIn(folder);
    const QStringList unreadable = filesWithUnreadableNames(folder);
    for (const QString &path : unreadable) {
        if (kindOfName(path)) {
            paths.append(path);
        }
    }
    paths.removeIf([&isUnread](const QString &path) { return !isUnread(path); });
    return paths;
}

} // namespace

FolderAdmission::FolderAdmission(ReceiptStore *store, SettingsStore *settings, const Archive *archive,
                                 const FolderThreads *folderThreads, LastError *lastError, Tasks *tasks)
    : store_(store)
    , settings_(settings)
    , archive_(archive)
    , folderThreads_(folderThreads)
    , lastError_(lastError)
    , tasks_(tasks) {}

std::unique_ptr<FolderSurvey> FolderAdmission::survey(const QString &path) const {
    auto survey = std::make_unique<FolderSurvey>(folderThreads_, unreadPaths());
    survey->start(QDir::cleanPath(path)); // as the intake spells the paths below it
    return survey;
}

void FolderAdmission::admit(const QString &path, ExistingFiles existing) {
    const int request = ++latestRequest_;
    if (existing == ExistingFiles::ignored) {
        tasks_->start(admitWithoutExistingFiles(path, request));
    } else {
        store(path);
    }
}

QCoro::Task<> FolderAdmission::admitWithoutExistingFiles(QString path, int request) {
    const QPointer<FolderAdmission> self(this);
    const QString folder = QDir::cleanPath(path);
    const std::function<bool(const QString &)> isUnread = unreadPaths();
    const QStringList files =
        co_await QtConcurrent::run(folderThreads_->pool(), filesToIgnore, folder, isUnread);
    if (!self || request != latestRequest_) {
        co_return;
    }
    if (const auto ignored = store_->ignore(files); !ignored) {
        lastError_->set(
            tr("The folder is not watched, because the list of what is already in it could not be saved: %1")
                .arg(ignored.error().description()));
        co_return;
    }
    store(path);
}

void FolderAdmission::store(const QString &path) {
    settings_->setWatchFolderPath(path);
    Q_EMIT admitted(path);
}

// Which paths the first look at a folder would take in; for any thread.
std::function<bool(const QString &)> FolderAdmission::unreadPaths() const {
    return [isKnown = store_->knownPaths(), archives = archive_->places()](const QString &path) {
        return !isKnown(path) && !archives.contains(path);
    };
}

} // namespace fennick
