#include "pipeline/receipt_renaming.h"

#include "files/file_renamer.h"
#include "model/receipt_store.h"
#include "pipeline/renamed_paths.h"
#include "pipeline/watched_folder.h"
#include "platform/file_system_answer.h"

namespace fennick {

bool keepsFileName(const Receipt &before, const Receipt &after) {
    return before.status == ReceiptStatus::done &&
           FileRenamer::buildNewFileName(before) == FileRenamer::buildNewFileName(after);
}

ReceiptRenaming::ReceiptRenaming(ReceiptStore *store, const WatchedFolder *watchedFolder,
                                 RenamedPaths *renamedPaths)
    : store_(store)
    , watchedFolder_(watchedFolder)
    , renamedPaths_(renamedPaths) {}

void ReceiptRenaming::rename(Receipt receipt) {
    if (!fileSystemAnswers(receipt.filePath)) {
        return;
    }
    const auto renamed = FileRenamer::rename(receipt, watchedFolder_->path);
    if (!renamed) {
        return;
    }
    renamedPaths_->insert(renamed->filePath, std::chrono::steady_clock::now());
    receipt.fileName = renamed->fileName;
    receipt.filePath = renamed->filePath;
    store_->update(receipt);
}

} // namespace fennick
