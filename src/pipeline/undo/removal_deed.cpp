#include "pipeline/undo/removal_deed.h"

#include "pipeline/undo/returning_receipts.h"

#include <QSet>

#include <utility>

namespace fennick {

RemovalDeed::RemovalDeed(RemovedReceipts removed, ReceiptStore *store, ReturningReceipts *returning)
    : removed_(std::move(removed))
    , store_(store)
    , returning_(returning) {
    //: What the menu's Undo takes back.
    setText(tr("Remove from List"));
}

void RemovalDeed::undo() {
    returning_->putBack(removed_);
    returning_->reportMissingFiles(removed_);
}

void RemovalDeed::doAgain() {
    QSet<QString> ids;
    for (const auto &[receipt, rowsBelow] : std::as_const(removed_.rows)) {
        ids.insert(receipt.id);
    }
    removed_ = store_->beforeRemoval(ids);
    store_->remove(ids);
}

} // namespace fennick
