#include "files/file_renamer.h"
#include "model/data_folder.h"
#include "pipeline/app_state.h"
#include "platform/photo_library.h"
#include "text/numbered_name.h"
#include "text/path_text.h"

#include <QCoroFuture>
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

QFuture<void> AppState::recoverFromInterruption() {
    PhotoLibrary::undoInterruptedChanges(dataFolder());
    resumeArchive();
    const QList<Receipt> receipts = store_->receipts();
    for (const Receipt &receipt : receipts) {
        if (receipt.status == ReceiptStatus::processing) {
            failScan(receipt.id, QString::fromUtf8(QT_TR_NOOP(
                                     "The scan was interrupted. Retry to scan this receipt again.")));
        }
    }
    QPromise<void> adoption;
    adoption.start();
    adoption_ = adoption.future();
    startTask(adoptRenamedFiles(std::move(adoption)));
    return adoption_;
}

// The file was renamed and the program killed before the list told so: without this the receipt would lead
// nowhere, and its file be scanned and paid for once more.
QCoro::Task<> AppState::adoptRenamedFiles(QPromise<void> end) {
    const QPointer<AppState> self(this);
    QList<UnderOtherName> receipts;
    for (const Receipt &receipt : store_->receipts()) {
        const QString name = FileRenamer::buildNewFileName(receipt);
        if (receipt.status == ReceiptStatus::done && name != receipt.fileName) {
            receipts.append({receipt.id, receipt.filePath, name});
        }
    }
    // Not on this thread: the files may lie on a network that is gone.
    const QList<QStringList> files =
        co_await QtConcurrent::run(folderThreads_.get(), possibleFilesOfAll, receipts);
    for (qsizetype index = 0; self && index < receipts.size(); ++index) {
        const auto current = store_->receipt(receipts[index].id);
        if (current &&
            current->filePath == receipts[index].path) { // not changed while the files were looked at
            adoptFirstFree(*current, files[index]);
        }
    }
    end.finish();
}

void AppState::adoptFirstFree(Receipt receipt, const QStringList &paths) {
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
