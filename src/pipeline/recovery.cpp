#include "pipeline/recovery.h"

#include "files/file_renamer.h"
#include "model/data_folder.h"
#include "model/receipt_store.h"
#include "pipeline/archive.h"
#include "pipeline/folder_threads.h"
#include "pipeline/tasks.h"
#include "pipeline/undo/undo_history.h"
#include "platform/photo_library.h"
#include "platform/regular_file.h"
#include "text/numbered_name.h"
#include "text/path_text.h"

#include <QCoroFuture>
#include <QPointer>
#include <QtConcurrent>

namespace fennick {

namespace {

// A finished receipt whose file does not have the name that it was to be given.
struct UnderOtherName {
    QString id;
    QString path;
    QString name;
};

// The files that may be the receipt's under the name it was to be given, numbered or not; none when it still
// has its old one.
QStringList possibleFiles(const UnderOtherName &receipt) {
    QStringList paths;
    if (isTaken(receipt.path)) {
        return paths;
    }
    const QString folder = parentFolder(receipt.path);
    QString path = joinedPath(folder, receipt.name);
    for (int number = 2; fileStateAt(path).kind == FileKind::regular; ++number) {
        paths.append(path);
        path = joinedPath(
            folder, numberedName(nameWithoutExtension(receipt.name), pathExtension(receipt.name), number));
    }
    return paths;
}

QList<QStringList> possibleFilesOfAll(const QList<UnderOtherName> &receipts) {
    QList<QStringList> files;
    for (const UnderOtherName &receipt : receipts) {
        files.append(possibleFiles(receipt));
    }
    return files;
}

} // namespace

const char *const Recovery::interruptedText =
    QT_TRANSLATE_NOOP("fennick::Recovery", "The scan was interrupted. Retry to scan this receipt again.");

Recovery::Recovery(ReceiptStore *store, Archive *archive, UndoHistory *history,
                   const FolderThreads *folderThreads, Tasks *tasks)
    : store_(store)
    , archive_(archive)
    , history_(history)
    , folderThreads_(folderThreads)
    , tasks_(tasks) {}

QFuture<void> Recovery::recover() {
    PhotoLibrary::undoInterruptedChanges(dataFolder());
    archive_->resume();
    history_->resume();
    failInterruptedScans();
    QPromise<void> adoption;
    adoption.start();
    adoption_ = adoption.future();
    tasks_->start(adoptRenamedFiles(std::move(adoption)));
    return adoption_;
}

void Recovery::failInterruptedScans() {
    const QList<Receipt> receipts = store_->receipts(); // a copy: the list changes meanwhile
    for (const Receipt &receipt : receipts) {
        if (receipt.status == ReceiptStatus::processing) {
            store_->setError(receipt.id, QString::fromUtf8(interruptedText));
        }
    }
}

// The program was killed after a file was renamed and before the list was saved: without this the receipt
// would lead nowhere, and its file would be scanned and paid for once more.
QCoro::Task<> Recovery::adoptRenamedFiles(QPromise<void> end) {
    const QPointer<Recovery> self(this);
    QList<UnderOtherName> receipts;
    for (const Receipt &receipt : store_->receipts()) {
        const QString name = FileRenamer::buildNewFileName(receipt);
        if (receipt.status == ReceiptStatus::done && name != receipt.fileName) {
            receipts.append({receipt.id, receipt.filePath, name});
        }
    }
    // Not on this thread: the files may lie on an unreachable network.
    const QList<QStringList> files =
        co_await QtConcurrent::run(folderThreads_->pool(), possibleFilesOfAll, receipts);
    for (qsizetype index = 0; self && index < receipts.size(); ++index) {
        const auto current = store_->receipt(receipts[index].id);
        if (current &&
            current->filePath == receipts[index].path) { // not changed while the files were looked at
            adoptFirstFree(*current, files[index]);
        }
    }
    end.finish();
}

void Recovery::adoptFirstFree(Receipt receipt, const QStringList &paths) {
    for (const QString &path : paths) {
        if (!store_->hasFilePath(path)) {
            receipt.fileName = lastPathComponent(path);
            receipt.filePath = path;
            store_->update(receipt);
            return;
        }
    }
}

} // namespace fennick
