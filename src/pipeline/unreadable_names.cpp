#include "platform/unreadable_names.h"

#include "pipeline/app_state.h"

#include <QCoroFuture>
#include <QtConcurrent>

namespace fennick {

// A receipt that cannot be opened is listed all the same: who put it there would wait for it in vain.
QCoro::Task<> AppState::listUnreadableNames(QString folder) {
    const QPointer<AppState> self(this); // the program may be ending
    const QStringList paths =
        co_await QtConcurrent::run(folderThreads_.get(), filesWithUnreadableNames, folder);
    if (!self) {
        co_return;
    }
    for (const QString &path : paths) {
        if (isSupported(path) && !isInArchive(path) && !store_->hasFilePath(path)) {
            Receipt receipt = freshReceipt(path);
            receipt.status = ReceiptStatus::error;
            receipt.error =
                QString::fromUtf8(QT_TR_NOOP("The file's name cannot be read. Rename the file to scan it."));
            store_->add(receipt);
        }
    }
}

} // namespace fennick
