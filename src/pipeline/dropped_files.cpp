#include "pipeline/dropped_files.h"

#include "kinds/document_kind.h"
#include "pipeline/last_error.h"
#include "pipeline/tasks.h"
#include "platform/file_operations.h"
#include "platform/free_path.h"
#include "platform/regular_file.h"
#include "settings/settings_store.h"
#include "text/path_text.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QPointer>
#include <QtConcurrent>

namespace fennick {

DroppedFiles::DroppedFiles(SettingsStore *settings, LastError *lastError, Tasks *tasks)
    : settings_(settings)
    , lastError_(lastError)
    , tasks_(tasks) {}

void DroppedFiles::copyIntoWatchFolder(const QStringList &paths) {
    const QString folder = settings_->watchFolderPath().value_or(QString());
    if (!folder.isEmpty()) {
        tasks_->start(copyReceipts(paths, folder));
    }
}

QCoro::Task<> DroppedFiles::copyReceipts(QStringList paths, QString folder) {
    const QPointer<DroppedFiles> self(this);
    for (const QString &path : paths) {
        const QFileInfo dropped(path);
        if (!kindOfName(path) || !dropped.isFile()) {
            continue;
        }
        // A dropped link stands for its target.
        const QString source = dropped.isSymLink() ? dropped.canonicalFilePath() : path;
        if (const auto problem = problemOf(fileStateAt(source))) {
            lastError_->set(tr("Couldn't copy %1: %2").arg(lastPathComponent(path), problem->description()));
            continue;
        }
        const QString target = freePath(folder, lastPathComponent(path));
        const auto copied = co_await QtConcurrent::run(FileOperations::copyDurably, source, target);
        if (!self) {
            co_return;
        }
        if (!copied) {
            lastError_->set(
                tr("Couldn't copy %1: %2").arg(lastPathComponent(path), copied.error().description()));
        }
    }
}

} // namespace fennick
