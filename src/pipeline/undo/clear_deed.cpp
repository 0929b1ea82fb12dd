#include "pipeline/undo/clear_deed.h"

#include "pipeline/undo/deed_record.h"
#include "pipeline/undo/returning_receipts.h"

#include <QSet>

#include <utility>

namespace fennick {

ClearDeed::ClearDeed(RecordedDeed deed, ReceiptStore *store, ReturningReceipts *returning, DeedRecord *record)
    : deed_(std::move(deed))
    , store_(store)
    , returning_(returning)
    , record_(record) {
    //: What the menu's Undo takes back.
    setText(tr("Clear All"));
}

void ClearDeed::undo() {
    deed_.isBeingUndone = true;
    record_->insert(deed_);
    returning_->putBack(deed_.removed);
    returning_->reportMissingFiles(deed_.removed);
}

// What has come into the list since the clearing stays.
void ClearDeed::doAgain() {
    const QSet<QString> ids = receiptIds(deed_);
    deed_.removed = store_->beforeRemoval(ids);
    deed_.isBeingUndone = false;
    record_->insert(deed_);
    store_->remove(ids);
}

} // namespace fennick
