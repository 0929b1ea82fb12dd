#include "pipeline/app_state.h"
#include "platform/file_operations.h"
#include "platform/free_path.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QtConcurrent>

namespace fennick {

void AppState::copyIntoWatchFolder(const QStringList &paths) {
    const QString folder = settings_->watchFolderPath().value_or(QString());
    if (!folder.isEmpty()) {
        startTask(copyReceipts(paths, folder));
    }
}

QCoro::Task<> AppState::copyReceipts(QStringList paths, QString folder) {
    const QPointer<AppState> self(this);
    for (const QString &path : paths) {
        const QFileInfo dropped(path);
        if (!isSupported(path) || !dropped.isFile()) {
            continue;
        }
        // Who drops a link means the file behind it.
        const QString source = dropped.isSymLink() ? dropped.canonicalFilePath() : path;
        if (const auto problem = problemOf(fileStateAt(source))) {
            setLastError(tr("Couldn't copy %1: %2").arg(lastPathComponent(path), problem->description()));
            continue;
        }
        const QString target = freePath(folder, lastPathComponent(path));
        const auto copied = co_await QtConcurrent::run(FileOperations::copyDurably, source, target);
        if (!self) {
            co_return;
        }
        if (!copied) {
            setLastError(tr("Couldn't copy %1: %2").arg(lastPathComponent(path), copied.error()));
        }
    }
}

} // namespace fennick
