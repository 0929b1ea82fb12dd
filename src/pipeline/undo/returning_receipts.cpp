#include "pipeline/undo/returning_receipts.h"

#include "pipeline/recovery.h"
#include "pipeline/scan_run.h"
#include "platform/file_system_answer.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QHash>
#include <QSet>

namespace fennick {

ReturningReceipts::ReturningReceipts(ReceiptStore *store, const ScanRun *scanRun,
                                     QList<UndoProblem> *problems)
    : store_(store)
    , scanRun_(scanRun)
    , problems_(problems) {}

void ReturningReceipts::putBack(RemovedReceipts removed) {
    QHash<QString, QString> idsByPath;
    for (const Receipt &receipt : store_->receipts()) {
        idsByPath.insert(receipt.filePath, receipt.id);
    }
    removed.rows.removeIf([&](const RemovedReceipts::Row &row) {
        const Receipt &receipt = row.receipt;
        const bool isListedAgain = idsByPath.value(receipt.filePath, receipt.id) != receipt.id;
        if (isListedAgain) {
            problems_->append({UndoProblem::Kind::listedAgain, receipt.fileName});
        }
        return isListedAgain;
    });
    for (RemovedReceipts::Row &row : removed.rows) {
        if (row.receipt.status == ReceiptStatus::processing && !scanRun_->isUnderWay(row.receipt.id)) {
            row.receipt.status = ReceiptStatus::error;
            row.receipt.error = QString::fromUtf8(Recovery::interruptedText);
        }
    }
    store_->putBack(removed);
}

void ReturningReceipts::reportMissingFiles(const RemovedReceipts &removed) {
    QHash<QString, bool> answers; // by folder
    for (const auto &[receipt, rowsBelow] : removed.rows) {
        const QString folder = parentFolder(receipt.filePath);
        if (!answers.contains(folder)) {
            answers.insert(folder, fileSystemAnswers(folder));
        }
        if (answers.value(folder) && !isTaken(receipt.filePath)) {
            problems_->append({UndoProblem::Kind::fileMissing, receipt.fileName});
        }
    }
}

} // namespace fennick
