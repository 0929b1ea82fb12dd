#include "pipeline/undo/correction_deed.h"

#include "pipeline/corrected_receipts.h"
#include "pipeline/undo/deed_text.h"
#include "pipeline/undo/receipt_exchange.h"

#include <utility>

namespace fennick {

CorrectionDeed::CorrectionDeed(Receipt before, Receipt after, bool isFirst, ReceiptExchange *exchange,
                               CorrectedReceipts *corrected)
    : before_(std::move(before))
    , after_(std::move(after))
    , isFirst_(isFirst)
    , exchange_(exchange)
    , corrected_(corrected) {
    //: What the menu's Undo takes back. %1 is a place or a file's name.
    setText(tr("Correction of “%1”").arg(shortNameOf(after_)));
}

void CorrectionDeed::undo() {
    exchange_->exchange(after_, before_);
    if (isFirst_) {
        corrected_->remove(after_.id); // last: killed before, somebody is asked once too often
    }
}

void CorrectionDeed::doAgain() {
    corrected_->insert(after_.id);
    exchange_->exchange(before_, after_);
}

} // namespace fennick
