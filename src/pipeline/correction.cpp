#include "pipeline/correction.h"

#include "files/file_renamer.h"
#include "model/receipt_store.h"
#include "pipeline/corrected_receipts.h"
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

} // namespace

Correction::Correction(ReceiptStore *store, ReceiptRenaming *renaming, CorrectedReceipts *corrected,
                       const FolderThreads *folderThreads)
    : store_(store)
    , renaming_(renaming)
    , corrected_(corrected)
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
    corrected_->insert(id); // first: killed in between, nobody would be asked before the fields go
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
