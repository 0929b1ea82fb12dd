#pragma once

#include "model/receipt_store.h"
#include "pipeline/undo/undo_problem.h"

#include <QList>

namespace fennick {

class ScanRun;

// Puts receipts that have left the list back into it, as far as the list has not come to other receipts of
// their files. Owned by UndoHistory; main thread.
class ReturningReceipts {
public:
    ReturningReceipts(ReceiptStore *store, const ScanRun *scanRun, QList<UndoProblem> *problems);

    void putBack(RemovedReceipts removed);

    // Reports the receipts whose files are not there; asks no folder that does not respond.
    void reportMissingFiles(const RemovedReceipts &removed);

private:
    ReceiptStore *store_;
    const ScanRun *scanRun_;
    QList<UndoProblem> *problems_;
};

} // namespace fennick
