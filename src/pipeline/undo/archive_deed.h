#pragma once

#include "pipeline/undo/archive_reversal.h"
#include "pipeline/undo/undoable_deed.h"

#include <QCoreApplication>

namespace fennick {

// That the list was archived and cleared. It can still be taken back after a restart.
class ArchiveDeed : public UndoableDeed {
    Q_DECLARE_TR_FUNCTIONS(fennick::ArchiveDeed)

public:
    ArchiveDeed(RecordedDeed deed, ArchiveReversal::Source source, ReceiptStore *store, Archive *archive,
                ArchiveReversal *reversal);

    bool isPossible() const override;
    void undo() override;
    const RecordedDeed *recorded() const override { return &deed_; }

protected:
    void doAgain() override;

private:
    RecordedDeed deed_;
    ArchiveReversal::Source source_;
    ReceiptStore *store_;
    Archive *archive_;
    ArchiveReversal *reversal_;
};

} // namespace fennick
