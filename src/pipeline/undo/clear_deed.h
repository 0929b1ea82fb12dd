#pragma once

#include "pipeline/undo/recorded_deed.h"
#include "pipeline/undo/undoable_deed.h"

#include <QCoreApplication>

namespace fennick {

class DeedRecord;
class ReturningReceipts;

// That the list was cleared. It can still be taken back after a restart.
class ClearDeed : public UndoableDeed {
    Q_DECLARE_TR_FUNCTIONS(fennick::ClearDeed)

public:
    ClearDeed(RecordedDeed deed, ReceiptStore *store, ReturningReceipts *returning, DeedRecord *record);

    void undo() override;
    const RecordedDeed *recorded() const override { return &deed_; }

protected:
    void doAgain() override;

private:
    RecordedDeed deed_;
    ReceiptStore *store_;
    ReturningReceipts *returning_;
    DeedRecord *record_;
};

} // namespace fennick
