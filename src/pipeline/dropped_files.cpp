#include "pipeline/app_state.h"
#include "platform/file_operations.h"
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
        if (!isSupported(path) || !QFileInfo(path).isFile()) {
            continue;
        }
        const QString target = uniquePath(folder, nameWithoutExtension(path), pathExtension(path));
        const auto copied = co_await QtConcurrent::run(FileOperations::copyDurably, path, target);
        if (!self) {
            co_return;
        }
        if (!copied) {
            setLastError(tr("Couldn't copy %1: %2").arg(lastPathComponent(path), copied.error()));
        }
    }
}

} // namespace fennick
