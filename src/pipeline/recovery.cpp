#include "files/file_renamer.h"
#include "model/data_folder.h"
#include "pipeline/app_state.h"
#include "platform/photo_library.h"
#include "text/numbered_name.h"
#include "text/path_text.h"

namespace fennick {

void AppState::recoverFromInterruption() {
    PhotoLibrary::undoInterruptedChanges(dataFolder());
    resumeArchive();
    const QList<Receipt> receipts = store_->receipts();
    for (const Receipt &receipt : receipts) {
        if (receipt.status == ReceiptStatus::processing) {
            failScan(receipt.id, QString::fromUtf8(QT_TR_NOOP(
                                     "The scan was interrupted. Retry to scan this receipt again.")));
        } else if (receipt.status == ReceiptStatus::done) {
            adoptRenamedFile(receipt);
        }
    }
}

// The file was renamed and the program killed before the list told so: without this the receipt would lead
// nowhere, and its file be scanned and paid for once more.
void AppState::adoptRenamedFile(const Receipt &receipt) {
    const QString name = FileRenamer::buildNewFileName(receipt);
    if (name == receipt.fileName || isTaken(receipt.filePath)) {
        return;
    }
    const QString folder = parentFolder(receipt.filePath);
    QString candidate = name;
    for (int number = 2; fileStateAt(joinedPath(folder, candidate)).kind == FileKind::regular; ++number) {
        if (!store_->hasFilePath(joinedPath(folder, candidate))) {
            Receipt adopted = receipt;
            adopted.fileName = candidate;
            adopted.filePath = joinedPath(folder, candidate);
            store_->update(adopted);
            return;
        }
        candidate = numberedName(nameWithoutExtension(name), pathExtension(name), number);
    }
}

} // namespace fennick
