#pragma once

#include "model/receipt_store.h"
#include "pipeline/undo/undoable_deed.h"

#include <QCoreApplication>

namespace fennick {

class ReturningReceipts;

// That receipts were removed from the list. Taken back, they are listed where they were, and what was ignored
// only for the removal is no longer ignored.
class RemovalDeed : public UndoableDeed {
    Q_DECLARE_TR_FUNCTIONS(fennick::RemovalDeed)

public:
    RemovalDeed(RemovedReceipts removed, ReceiptStore *store, ReturningReceipts *returning);

    void undo() override;

protected:
    void doAgain() override;

private:
    RemovedReceipts removed_;
    ReceiptStore *store_;
    ReturningReceipts *returning_;
};

} // namespace fennick
