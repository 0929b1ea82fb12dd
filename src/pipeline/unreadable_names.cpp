#include "pipeline/unreadable_names.h"

#include "kinds/document_kind.h"
#include "model/receipt_store.h"
#include "pipeline/archive.h"
#include "pipeline/folder_threads.h"
#include "pipeline/tasks.h"
#include "platform/unreadable_names.h"

#include <QCoroFuture>
#include <QPointer>
#include <QtConcurrent>

namespace fennick {

UnreadableNames::UnreadableNames(ReceiptStore *store, const Archive *archive,
                                 const FolderThreads *folderThreads, Tasks *tasks)
    : store_(store)
    , archive_(archive)
    , folderThreads_(folderThreads)
    , tasks_(tasks) {
    delay_.setSingleShot(true);
    delay_.setInterval(std::chrono::milliseconds(500));
    connect(&delay_, &QTimer::timeout, this, [this] { list(folder_); });
}

void UnreadableNames::list(const QString &folder) {
    folder_ = folder;
    tasks_->start(addRows(folder));
}

void UnreadableNames::listAgainSoon() {
    delay_.start();
}

QCoro::Task<> UnreadableNames::addRows(QString folder) {
    const QPointer<UnreadableNames> self(this);
    const QStringList paths =
        co_await QtConcurrent::run(folderThreads_->pool(), filesWithUnreadableNames, folder);
    if (!self) {
        co_return;
    }
    for (const QString &path : paths) {
        if (kindOfName(path) && !archive_->contains(path) && !store_->hasFilePath(path)) {
            Receipt receipt = freshReceipt(path);
            receipt.status = ReceiptStatus::error;
            receipt.error =
                QString::fromUtf8(QT_TR_NOOP("The file's name cannot be read. Rename the file to scan it."));
            store_->add(receipt);
        }
    }
}

} // namespace fennick
