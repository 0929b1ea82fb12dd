#include "pipeline/correction.h"

#include "files/file_renamer.h"
#include "model/receipt_store.h"
#include "pipeline/folder_threads.h"
#include "pipeline/receipt_renaming.h"

#include <QPromise>
#include <QtConcurrent>

namespace fennick {

namespace {

// Newer Qt has a function for it, which older Qt has not.
QFuture<QString> finishedFuture(const QString &name) {
    QPromise<QString> promise;
    promise.start();
    promise.addResult(name);
    promise.finish();
    return promise.future();
}

// A file that got a number with its name would get another one, though nothing that is in the name changes.
bool keepsFileName(const Receipt &before, const Receipt &after) {
    return before.status == ReceiptStatus::done &&
           FileRenamer::buildNewFileName(before) == FileRenamer::buildNewFileName(after);
}

} // namespace

Correction::Correction(ReceiptStore *store, ReceiptRenaming *renaming, const FolderThreads *folderThreads)
    : store_(store)
    , renaming_(renaming)
    , folderThreads_(folderThreads) {}

bool Correction::isPossible(const QString &id) const {
    const auto receipt = store_->receipt(id);
    return receipt && receipt->status != ReceiptStatus::processing;
}

std::expected<void, FieldProblems> Correction::correct(const QString &id, const TypedFields &typed,
                                                       const FieldFormats &formats) {
    if (typed.empty() || !isPossible(id)) {
        return {};
    }
    const Receipt before = *store_->receipt(id);
    auto after = withTypedFields(before, typed, formats);
    if (!after) {
        return std::unexpected(std::move(after.error()));
    }
    after->status = ReceiptStatus::done;
    after->error.reset();
    store_->update(*after);
    if (!keepsFileName(before, *after)) {
        renaming_->rename(*after);
    }
    return {};
}

QFuture<QString> Correction::fileNameAfter(const QString &id, const TypedFields &typed,
                                           const FieldFormats &formats) const {
    const auto before = store_->receipt(id);
    const auto after = before ? withTypedFields(*before, typed, formats) : Receipt();
    if (!before || !after || typed.empty() || keepsFileName(*before, *after)) {
        return finishedFuture(before ? before->fileName : QString());
    }
    return QtConcurrent::run(folderThreads_->pool(), FileRenamer::nameAfterRenaming, *after);
}

} // namespace fennick
